#pragma once

#include "GenericContainer/GenericContainerIndexTableGenerator.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace GenericContainer {

/// Makes index tables of every type, with segments of at most 64 KB.
///
/// `setupIndexSegments`, the stream numbers and the strategies come before
/// everything else: what asks for segments or entries uses them. An automatic
/// type becomes the simplest that can tell where each element is. One thread
/// at a time.
class VANTRY_EXPORT DefaultIndexTableGenerator : public GenericContainerIndexTableGenerator
{
public:
    /// Without index table until `indexStrategies` asks for one.
    DefaultIndexTableGenerator();

    DefaultIndexTableGenerator(DefaultIndexTableGenerator const &) = delete;
    DefaultIndexTableGenerator & operator=(DefaultIndexTableGenerator const &) = delete;
    ~DefaultIndexTableGenerator() override;

    /// \throws Exceptions::InvalidState when the generator was set up or used
    ///         before.
    void setupIndexSegments(IndexSegmentInfo const & info) override;

    /// Sets the start of the segment that comes next.
    void currentContentInfo(UInt64 editUnits, UInt64 streamOffset) override;

    /// \name Everything below takes the generator into use
    ///
    /// \throws Exceptions::InvalidState when an index table is wanted and the
    ///         generator wasn't set up.
    /// \throws Exceptions::NotImplemented for a clip of several elements.
    /// \throws Exceptions::IndexOutOfBounds when there are more elements of
    ///         variable size than a segment can tell apart.
    /// @{

    unsigned char posTableCount() const override;
    unsigned char sliceCount() const override;

    /// Drops the entry when the table needs none. Opens a new segment when the
    /// current one is full.
    ///
    /// \throws Exceptions::InvalidElement when the entry hasn't `sliceCount`
    ///         slice offsets and a position table of `posTableCount`.
    void writeIndexEntry(IndexTables::IndexEntry const & entry) override;

    void updateIndex() override;
    unsigned int rawIndexByteCount(bool afterEssence) const override;
    void writeIndexSegments(bool afterEssence, DataIO::DataSink & sink) override;
    MXFIO::IndexTableSegmentType indexSegmentType() const override;
    bool indexesAfterEndOfEssence() const override;
    /// @}

    void indexSID(unsigned int indexSID) override;
    void bodySID(unsigned int bodySID) override;
    void indexStrategies(MXFIO::IndexTableGeneration duringEssence, MXFIO::IndexTableGeneration afterEssence,
                         MXFIO::IndexTableSegmentType segmentType) override;

protected:
    /// Whether the next entry needs a new segment: by default, whether the
    /// current one has more than 64512 bytes.
    virtual bool isCurrentFull() const;

private:
    class Impl;
    Impl * impl_;
};

}}
