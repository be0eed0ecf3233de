#pragma once

#include "DataIO/Chain.h"
#include "GenericContainer/ContainerData.h"
#include "GenericContainer/GenericContainerIndexTableGenerator.h"
#include "GenericContainer/IndexEntryBuilder.h"
#include "GenericContainer/IndexSegmentInfo.h"
#include "GenericContainer/ItemReader.h"
#include "GenericContainer/PacketHeads.h"
#include "GenericContainer/Source.h"
#include "GenericContainer/TimecodeHandler.h"

namespace Vantry { namespace GenericContainer {

struct EditUnit;

/// Turns the edit units of analyzers into the content packages of a container,
/// and tells the index what it makes.
///
/// No byte of essence is copied: slices move from chain to chain, with heads
/// and fill between them. What an analyzer throws passes through, and leaves
/// the worker of no more use.
class BaseWorkerImpl : public Source
{
public:
    /// \param klLength  bytes of key and length field of a clip and of fill
    BaseWorkerImpl(ContainerData const & data, IndexSegmentInfo::ContentWrapKind wrapKind, unsigned int klLength);
    ~BaseWorkerImpl() override;

    /// Takes the next content package.
    ///
    /// \throws Exceptions::InvalidLength when an element doesn't fit into the
    ///         size that it has to have.
    bool next(DataIO::Chain & chain, bool & complete, Templates::SharedPtr<MXFIO::FutureUpdater> & updater,
              Templates::Rational<Int64> & duration) override;
    bool done() const override;
    unsigned int kagSize() const override;
    void finalize() override;
    Metadata::Structural::SourcePackage & sourcePackage() override;
    Types::UniversalLabel const & essenceContainerUL() override;
    Templates::Rational<int> const & packageRate() override;
    bool isCBE() const override;
    MXFIO::IndexTableGenerator * indexTableGenerator() override;
    void indexTableGenerator(Templates::auto_ptr<MXFIO::IndexTableGenerator> generator) override;

protected:
    using Seconds = Templates::Rational<Int64>;
    using Entries = Templates::list<AnalyzerEntry>;

    /// Makes the next content package, if there is one.
    ///
    /// \param duration  set to the seconds that it covers
    virtual void doNextContentPackage(DataIO::Chain & chain, Seconds & duration);

    ContainerData const & data() const { return data_; }
    Entries & entries() { return data_.analyzers; }
    IndexEntryBuilder & index() { return index_; }

    /// The time, in seconds from the start, at which the present content
    /// package ends.
    Seconds packageEnd() const;

    /// Key and length field of an element.
    ///
    /// \param lengthSize  bytes of the length field
    /// \throws Exceptions::InvalidLength when the length has no room in it.
    Templates::auto_ptr<DataIO::Slice> createKLSlice(AnalyzerEntry const & entry, UInt64 length,
                                                     unsigned char lengthSize);

    /// Appends a fill item of `size` bytes, unless that is 0.
    ///
    /// \throws Exceptions::InvalidLength when that many can't be filled.
    void createFiller(UInt64 size, DataIO::Chain & chain);

    /// Starts the index entry of a content package.
    void prepareNewEntry();

    /// Closes the index entry of a content package of `size` bytes.
    void appendIndexEntry(UInt64 size);

    /// Tells the index how far the container has got.
    void updateContentInfo();

    /// Content packages done.
    UInt64 editUnits() const { return editUnits_; }
    void countEditUnit() { ++editUnits_; }

    /// Follows the time code, if the analyzer is the one that gives it.
    void checkTimeCode(AnalyzerEntry const & entry, EditUnit const & unit);

    /// Starts the time code track with the time code of the essence.
    ///
    /// \param duration  seconds of the essence, -1/1 when they aren't known
    void setupTimecodeTrack(Templates::Rational<int> const & duration);

    /// Has the tracks of the package start behind the pre-charge.
    void updateTrackOrigins();

    /// Lets an analyzer complete its metadata, once.
    static void finalize(AnalyzerEntry & entry);

    bool isFinished() const { return done_; }
    void finish() const { done_ = true; }

    /// Bytes of the content packages since the start, or the last restart.
    UInt64 streamOffset() const { return streamOffset_; }
    void restartStream() { streamOffset_ = 0; }

private:
    Seconds processAnalyzer(AnalyzerEntry & entry, Seconds const & end, DataIO::Chain & chain);
    UInt64 fillSize(AnalyzerEntry const & entry, UInt64 size) const;
    UInt64 restOfItem(EssenceAnalyzer const & analyzer, UInt64 size) const;
    bool startsSlice(AnalyzerEntry const & entry) const;
    bool fillHasSlice(AnalyzerEntry const & entry) const;
    Int32 getItemSize(EssenceAnalyzer const & analyzer) const;
    IndexSegmentInfo indexSegmentInfo() const;

    IndexSegmentInfo::ContentWrapKind wrapKind_;
    UInt32 klLength_;
    ContainerData data_;
    Templates::Rational<int> preCharge_;
    ItemReader reader_;
    PacketHeads heads_;
    TimecodeHandler timecode_;
    Templates::auto_ptr<MXFIO::IndexTableGenerator> generator_;
    GenericContainerIndexTableGenerator * containerGenerator_;
    IndexEntryBuilder index_;
    mutable bool done_;
    UInt64 editUnits_;
    UInt64 streamOffset_;

    // Bytes of the present content package, and of it up to the last item that
    // was filled to a size.
    UInt64 sliceOffset_;
    UInt64 lastItemSliceOffset_;

    // A content package that is made and not handed out.
    DataIO::Chain cache_;
    Seconds cachedDuration_;
};

}}
