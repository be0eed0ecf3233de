#pragma once

#include "DataIO/SliceSource.h"
#include "GenericContainer/DataAnalyzer.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace DataIO {
class Slice;
}

namespace GenericContainer {

/// Lines of the vertical blanking interval, and ancillary packets (SMPTE
/// 436M).
namespace S436M {

/// Brings the elements of a stream into a container, each as an edit unit, as
/// it is. All numbers are big-endian:
///
///     lines or packets that follow          2 bytes
///     and for each of them
///         line number                       2
///         wrapping type                     1
///         payload sample coding             1
///         payload sample count              2
///         array count                       4
///         array element size                4
///         payload
///
/// The payload has as many array elements as the array count says if that is
/// a multiple of 4, and otherwise as the sample count says.
class VANTRY_EXPORT S436MBaseAnalyzer : public DataAnalyzer
{
public:
    /// \param source  elements, one behind the other
    /// \throws Exceptions::BadAlloc.
    explicit S436MBaseAnalyzer(Templates::SharedPtr<DataIO::SliceSource> source);
    S436MBaseAnalyzer(S436MBaseAnalyzer const &) = delete;
    S436MBaseAnalyzer & operator=(S436MBaseAnalyzer const &) = delete;
    ~S436MBaseAnalyzer() override;

    Templates::Rational<int> editRate() override;
    void editRate(Templates::Rational<int> const & containerRate) override;

    /// Nothing is ever passed over: 0.
    UInt64 maximumToSkip() const override;
    void maximumToSkip(UInt64 bytes) override;

    /// True, without a look at the stream.
    bool preload() override;

    /// \return false when it was done before
    bool setMetadata(Metadata::PartitionMetadata & metadata, Metadata::Structural::SourcePackage * package,
                     unsigned int trackNumber, unsigned int trackID) override;

    /// \throws Exceptions::InvalidFormat "Input stream is not according to
    ///         format." when the stream ends within an element.
    bool nextEditUnit(EditUnit & unit) override;

    /// \return false without metadata
    bool finalize() override;

    bool isCBE() const override;

    /// None is known: 0.
    void boundedEditUnitSize(int size) override;
    unsigned int boundedEditUnitSize() const override;

    bool containsTemporalDependencies() const override;
    Utils::TimeCode currentTimeCode() override;
    unsigned char itemTypeIdentifier() const override;
    unsigned int requiredKAGSize() const override;
    bool done() override;

    /// Kept as they are set.
    void setDuration(Templates::Rational<int> const & seconds) override;
    Templates::Rational<int> getDuration() override;
    void setPreChargeDuration(Templates::Rational<int> const & seconds) override;
    Templates::Rational<int> getPreChargeDuration() override;

    /// Makes the descriptor of this kind of data.
    virtual Metadata::Structural::GenericDataEssenceDescriptor *
    createMetadataSet(Metadata::PartitionMetadata & metadata) = 0;

    /// Shows the payload of a line or packet before it goes into the edit
    /// unit. Does nothing here.
    virtual void processPayload(DataIO::Slice const & payload);

private:
    class Description;
    class Impl;
    Impl * impl_;
};

}
}
}
