#pragma once

#include "Platform/Export.h"

namespace Vantry {
namespace KLV {
class Key;
}

/// Keys of structural metadata sets (SMPTE 377M and the standards that map
/// essence): local sets with tags and lengths of two bytes.
namespace Metadata { namespace Structural { namespace StructuralMetadataKeys {

/// Sets of class Sequence.
VANTRY_EXPORT KLV::Key const & sequence() noexcept;

/// Sets of class SourceClip.
VANTRY_EXPORT KLV::Key const & sourceClip() noexcept;

/// Sets of class TimecodeComponent.
VANTRY_EXPORT KLV::Key const & timecodeComponent() noexcept;

/// Sets of class ContentStorage.
VANTRY_EXPORT KLV::Key const & contentStorage() noexcept;

/// Sets of class EssenceContainerData.
VANTRY_EXPORT KLV::Key const & essenceContainerData() noexcept;

/// Sets of class FileDescriptor.
VANTRY_EXPORT KLV::Key const & fileDescriptor() noexcept;

/// Sets of class GenericPictureEssenceDescriptor.
VANTRY_EXPORT KLV::Key const & genericPictureEssenceDescriptor() noexcept;

/// Sets of class CDCIEssenceDescriptor.
VANTRY_EXPORT KLV::Key const & cdciEssenceDescriptor() noexcept;

/// Sets of class RGBAEssenceDescriptor.
VANTRY_EXPORT KLV::Key const & rgbaEssenceDescriptor() noexcept;

/// Sets of class Preface.
VANTRY_EXPORT KLV::Key const & preface() noexcept;

/// Sets of class Identification.
VANTRY_EXPORT KLV::Key const & identification() noexcept;

/// Sets of class NetworkLocator.
VANTRY_EXPORT KLV::Key const & networkLocator() noexcept;

/// Sets of class TextLocator.
VANTRY_EXPORT KLV::Key const & textLocator() noexcept;

/// Sets of class MaterialPackage.
VANTRY_EXPORT KLV::Key const & materialPackage() noexcept;

/// Sets of class SourcePackage.
VANTRY_EXPORT KLV::Key const & sourcePackage() noexcept;

/// Sets of class EventTrack.
VANTRY_EXPORT KLV::Key const & eventTrack() noexcept;

/// Sets of class StaticTrack.
VANTRY_EXPORT KLV::Key const & staticTrack() noexcept;

/// Sets of class TimelineTrack.
VANTRY_EXPORT KLV::Key const & timelineTrack() noexcept;

/// Sets of class DMSegment.
VANTRY_EXPORT KLV::Key const & dmSegment() noexcept;

/// Sets of class GenericSoundEssenceDescriptor.
VANTRY_EXPORT KLV::Key const & genericSoundEssenceDescriptor() noexcept;

/// Sets of class GenericDataEssenceDescriptor.
VANTRY_EXPORT KLV::Key const & genericDataEssenceDescriptor() noexcept;

/// Sets of class MultipleDescriptor.
VANTRY_EXPORT KLV::Key const & multipleDescriptor() noexcept;

/// Sets of class DMSourceClip.
VANTRY_EXPORT KLV::Key const & dmSourceClip() noexcept;

/// Sets of class SMPTE331MTimeDateItemDescriptor.
VANTRY_EXPORT KLV::Key const & smpte331MTimeDateItemDescriptor() noexcept;

/// Sets of class AES3AudioEssenceDescriptor.
VANTRY_EXPORT KLV::Key const & aes3AudioEssenceDescriptor() noexcept;

/// Sets of class WAVEAudioEssenceDescriptor.
VANTRY_EXPORT KLV::Key const & waveAudioEssenceDescriptor() noexcept;

/// Sets of class UnknownChunkSet.
VANTRY_EXPORT KLV::Key const & unknownChunkSet() noexcept;

/// Sets of class WAVEAudioPhysicalDescriptor.
VANTRY_EXPORT KLV::Key const & waveAudioPhysicalDescriptor() noexcept;

/// Sets of class MPEG2VideoDescriptor.
VANTRY_EXPORT KLV::Key const & mpeg2VideoDescriptor() noexcept;

/// Sets of class JPEG2000PictureSubDescriptor.
VANTRY_EXPORT KLV::Key const & jpeg2000PictureSubDescriptor() noexcept;

/// Sets of class VBIDataDescriptor.
VANTRY_EXPORT KLV::Key const & vbiDataDescriptor() noexcept;

/// Sets of class ANCPacketsDescriptor.
VANTRY_EXPORT KLV::Key const & ancPacketsDescriptor() noexcept;

/// Sets of class MPEGAudioDescriptor.
VANTRY_EXPORT KLV::Key const & mpegAudioDescriptor() noexcept;

/// The framework that says which tracks are encrypted (SMPTE 429-6).
VANTRY_EXPORT KLV::Key const & cryptographicFramework() noexcept;

/// How the essence of a track is encrypted (SMPTE 429-6).
VANTRY_EXPORT KLV::Key const & cryptographicContext() noexcept;

}}}
}
