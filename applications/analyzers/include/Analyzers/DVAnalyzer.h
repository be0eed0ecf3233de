#pragma once

#include "Analyzers/ElementAnalyzer.h"
#include "DataIO/SliceSource.h"
#include "GenericContainer/CompoundAnalyzer.h"
#include "Templates/SharedPtr.h"

#include <memory>

namespace Vantry { namespace Analyzers {

/// DV (IEC 61834, SMPTE 314M and 370M), whose frames hold pictures, sound and
/// time code (SMPTE 383M).
///
/// An edit unit is a frame, uncopied; all have one size. Labels, rate and
/// descriptor are what the headers of the first frame say: 525 and 625 lines
/// with 25 and 50 Mb/s, 720 and 1080 with 100.
class DVAnalyzer : public ElementAnalyzer<GenericContainer::CompoundAnalyzer>
{
public:
    /// \param source    frames, one behind the other
    /// \param wrapKind  FRAME or CLIP
    explicit DVAnalyzer(Templates::SharedPtr<DataIO::SliceSource> source, Labels::WrapKind wrapKind = Labels::FRAME);
    ~DVAnalyzer() override;

    /// Whether what a stream begins with is a frame of DV.
    ///
    /// \param head  the first bytes, 480 at least
    static bool isDV(DataIO::Slice const & head);

    /// The frame rate of the stream, once it is preloaded, whatever the
    /// container has.
    Templates::Rational<int> editRate() override;
    void editRate(Templates::Rational<int> const & containerRate) override;

    /// Reads the headers of the first frame.
    ///
    /// \return false when there are none
    /// \throws Exceptions::InvalidFormat for a format that isn't known.
    bool preload() override;

    /// \throws Exceptions::InvalidFormat for a stream that is damaged, ends in
    ///         a frame or changes its format; the message tells where.
    bool nextEditUnit(GenericContainer::EditUnit & unit) override;

    Types::UniversalLabel universalLabel() override;

    /// True.
    bool isCBE() const override;

    /// The size of a frame.
    unsigned int boundedEditUnitSize() const override;

    /// That of the first frame, counted on.
    Utils::TimeCode currentTimeCode() override;

    bool done() override;

protected:
    void describe(EssenceMetadata & metadata) override;
    void complete(EssenceMetadata & metadata) override;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}}
