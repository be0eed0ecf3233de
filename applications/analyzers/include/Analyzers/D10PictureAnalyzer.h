#pragma once

#include "Analyzers/ElementAnalyzer.h"
#include "DataIO/SliceSource.h"
#include "GenericContainer/PictureAnalyzer.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace Analyzers {

/// D-10 pictures from an elementary stream of MPEG-2 video: intra frames of
/// the 4:2:2 profile at 30, 40 or 50 Mb/s, interlaced, of 720 by 608 samples at
/// 25 frames per second or of 720 by 512 at 30000/1001 (SMPTE 356M), as they
/// are mapped by SMPTE 386M.
///
/// An edit unit is a frame with the headers ahead of it, uncopied, and of the
/// size that the bit rate gives a picture at most: the container fills those
/// that are shorter.
class D10PictureAnalyzer : public ElementAnalyzer<GenericContainer::PictureAnalyzer>
{
public:
    /// \param source  an elementary stream, from its start
    explicit D10PictureAnalyzer(Templates::SharedPtr<DataIO::SliceSource> source);
    ~D10PictureAnalyzer() override;

    /// The frame rate of the stream, once it is preloaded, whatever the
    /// container has.
    Templates::Rational<int> editRate() override;
    using ElementAnalyzer::editRate;

    /// Bytes ahead of the first sequence header that are dropped; 65536 at
    /// first.
    UInt64 maximumToSkip() const override;
    void maximumToSkip(UInt64 bytes) override;

    /// Reads the first frame.
    ///
    /// \return false when there is no sequence header
    /// \throws Exceptions::InvalidFormat as nextEditUnit does, and for a stream
    ///         that isn't D-10; the message says why.
    bool preload() override;

    /// \throws Exceptions::InvalidFormat for a stream that is damaged, that
    ///         ends in a frame or changes its format, for a picture that isn't
    ///         an intra frame, has no sequence header of its own or is larger
    ///         than its bit rate allows; the message tells where.
    bool nextEditUnit(GenericContainer::EditUnit & unit) override;

    /// Of the container of picture and sound, once preloaded.
    Types::UniversalLabel universalLabel() override;

    /// True: the container fills pictures up.
    bool isCBE() const override;

    /// Bytes of a picture at most, once preloaded.
    unsigned int boundedEditUnitSize() const override;
    using ElementAnalyzer::boundedEditUnitSize;

    /// That of the frame that comes next.
    Utils::TimeCode currentTimeCode() override;

    /// 512
    unsigned int requiredKAGSize() const override;

    bool done() override;

protected:
    void describe(EssenceMetadata & metadata) override;
    void complete(EssenceMetadata & metadata) override;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}}
