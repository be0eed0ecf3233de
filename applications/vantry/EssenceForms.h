#pragma once

#include "EssenceTracks.h"

namespace Vantry {
namespace Metadata { namespace Structural {
class FileDescriptor;
}}
namespace Types {
class UniversalLabel;
}

namespace Application {

/// Mapping and wrapping; what a label says that can't be understood is
/// UNKNOWN and NEITHER, and so it is without one.
GenericContainer::RP224UniversalLabels::EssenceContainerInfo containerInfo(Types::UniversalLabel const * container);

/// Tells what picture is by container and coding.
EssenceForm pictureForm(Types::UniversalLabel const * container,
                        Metadata::Structural::FileDescriptor const * descriptor);

/// How sound is stored that can be written as a wave file; nothing for other
/// sound.
std::optional<SoundFormat> waveFormat(Types::UniversalLabel const * container,
                                      Metadata::Structural::FileDescriptor const * descriptor);

/// Whether sound lies in eight-channel elements (SMPTE 331M).
///
/// \param trackNumber  of the track; 0 where it has none
bool isEightChannelSound(Types::UniversalLabel const * container, unsigned trackNumber);

/// What a descriptor says of such sound, or what is usual: 48000 Hz, 24 bits
/// and all channels.
SoundFormat eightChannelFormat(Metadata::Structural::FileDescriptor const * descriptor);

}
}
