#pragma once

#include "Analyzers/ElementAnalyzer.h"
#include "DataIO/SliceSource.h"
#include "GenericContainer/NullEssenceProvider.h"
#include "GenericContainer/PictureAnalyzer.h"
#include "Templates/SharedPtr.h"

#include <memory>

namespace Vantry { namespace Analyzers {

/// Pictures from an elementary stream of MPEG-2 video (ISO/IEC 13818-2), of
/// intra pictures or of groups, as frames or fields (SMPTE 381M).
///
/// An edit unit is a frame with the headers ahead of it, uncopied. Flags and
/// temporal offsets are such that the index finds the key frame of each and
/// the order of display. The descriptor comes from the stream's own headers,
/// and what only its end tells is brought up to date there. Streams keep their
/// size, chroma format and rate. Black stands in where there is no picture.
class MPEG2VideoAnalyzer : public ElementAnalyzer<GenericContainer::PictureAnalyzer>,
                           public GenericContainer::NullEssenceProvider
{
public:
    /// \param source    an elementary stream, from its start
    /// \param wrapKind  FRAME or CLIP
    explicit MPEG2VideoAnalyzer(Templates::SharedPtr<DataIO::SliceSource> source,
                                Labels::WrapKind wrapKind = Labels::FRAME);
    ~MPEG2VideoAnalyzer() override;

    /// The frame rate of the stream, once it is preloaded, whatever the
    /// container has.
    Templates::Rational<int> editRate() override;
    void editRate(Templates::Rational<int> const & containerRate) override;

    /// Bytes ahead of the first sequence header that are dropped; 65536 at
    /// first.
    UInt64 maximumToSkip() const override;
    void maximumToSkip(UInt64 bytes) override;

    /// Reads the first frames, as many as it takes to see whether there are
    /// predicted ones.
    ///
    /// \return false when there is no sequence header
    /// \throws Exceptions::InvalidFormat as nextEditUnit does.
    bool preload() override;

    /// \throws Exceptions::InvalidFormat for a stream that is damaged, that
    ///         ends in a frame, changes its format, or has a predicted picture
    ///         after a beginning of intra pictures alone; the message tells
    ///         where.
    bool nextEditUnit(GenericContainer::EditUnit & unit) override;

    /// Whether there are predicted pictures.
    bool containsTemporalDependencies() const override;

    /// That of the first group, ahead of the first edit unit.
    Utils::TimeCode currentTimeCode() override;

    bool done() override;

    /// A black frame, as a group of its own.
    void fillNullEssence(GenericContainer::EditUnit & unit) override;

protected:
    void describe(EssenceMetadata & metadata) override;
    void complete(EssenceMetadata & metadata) override;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}}
