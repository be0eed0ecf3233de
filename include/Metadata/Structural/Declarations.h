#pragma once

/// \file
/// The classes of structural metadata sets, for headers that only name them.

namespace Vantry { namespace Metadata { namespace Structural {

class AES3AudioEssenceDescriptor;
class ANCPacketsDescriptor;
class CDCIEssenceDescriptor;
class ContentStorage;
class DMSegment;
class DMSourceClip;
class EssenceContainerData;
class EventTrack;
class FileDescriptor;
class GenericDataEssenceDescriptor;
class GenericDescriptor;
class GenericPackage;
class GenericPictureEssenceDescriptor;
class GenericSoundEssenceDescriptor;
class Identification;
class JPEG2000PictureSubDescriptor;
class Locator;
class MPEG2VideoDescriptor;
class MPEGAudioDescriptor;
class MaterialPackage;
class MultipleDescriptor;
class NetworkLocator;
class PhysicalDescriptor;
class Preface;
class RGBAEssenceDescriptor;
class SMPTE331MTimeDateItemDescriptor;
class Sequence;
class SourceClip;
class SourcePackage;
class StaticTrack;
class StructuralComponent;
class SubDescriptor;
class TextLocator;
class TimecodeComponent;
class TimelineTrack;
class Track;
class TrackableMetadataSet;
class UnknownChunkSet;
class VBIDataDescriptor;
class WAVEAudioEssenceDescriptor;
class WAVEAudioPhysicalDescriptor;

}}}
