#pragma once

#include "GenericContainer/RP224UniversalLabels.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"

#include <optional>
#include <string>
#include <vector>

namespace Vantry {
namespace Metadata {
class PartitionMetadata;
}

namespace Application {

/// What the essence of a track is written as.
enum class EssenceForm
{
    MPEG2_VIDEO,
    AVC,
    HEVC,
    JPEG_2000,
    DV,
    PCM,
    EIGHT_CHANNELS, ///< the element of SMPTE 331M, which D-10 has
    OTHER
};

/// How samples of sound are stored.
struct SoundFormat
{
    unsigned samplesPerSecond = 0;
    unsigned short bitsPerSample = 0; // as stored: whole bytes
    unsigned short channels = 0;

    unsigned frameSize() const { return bitsPerSample / 8u * channels; }
};

/// A track with essence in the file.
struct EssenceTrack
{
    /// Of the track in the material package that plays it; that in its own
    /// package where there is none.
    unsigned id = 0;

    std::string kind; // picture, sound, data
    EssenceForm form = EssenceForm::OTHER;
    SoundFormat sound;
    unsigned trackNumber = 0;
    Templates::Rational<Int64> editRate; // 0 when it isn't known

    /// Edit units of the track, pre-charge included, as the metadata have it.
    std::optional<Int64> duration;
};

/// Essence that lies in one stream of the file.
struct EssenceContainer
{
    /// The stream; 0 where the metadata don't tell.
    unsigned bodySID = 0;
    unsigned indexSID = 0;

    /// What the label says.
    GenericContainer::RP224UniversalLabels::WrapKind wrapping = GenericContainer::RP224UniversalLabels::NEITHER;

    /// What is to be said of a stream that the metadata don't tell, when others
    /// would do as well.
    std::string doubt;

    std::vector<EssenceTrack> tracks;
};

/// The containers of a file with their tracks, in the order of the metadata.
/// Where these tie no package to a stream, that of the only file package.
std::vector<EssenceContainer> essenceContainers(Metadata::PartitionMetadata const & metadata);

}
}
