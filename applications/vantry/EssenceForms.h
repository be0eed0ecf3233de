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

}
}
