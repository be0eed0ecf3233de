#pragma once

/// \file
/// The classes of structural metadata sets, for headers that only name them.

namespace Vantry { namespace Metadata {

/// The sets that say how a file is built and what is in it (SMPTE 377M and the
/// standards that map essence): a class for each kind of set, and an accessor
/// for each attribute. They keep nothing of their own: accessors find the
/// element of the attribute and go through it, so that the schema holds and
/// listeners hear of each change.
///
/// Values: `name()` is the value, which lives until the attribute changes, or
/// null when there is none. `name(value)` stores a copy; null clears. Throws
/// Exceptions::InvalidChange when the schema doesn't allow it.
///
/// Sets referred to: `name()` is the set, or null when there is none in the
/// metadata. `name(target)` refers to a set; null takes the reference away.
/// Throws Exceptions::MetadataSetReferenceNotAllowed for a set of a kind that
/// the schema doesn't list. Where the schema lacks the attribute nothing
/// happens.
///
/// Several of them: `name(index)` is one, counted from 0, or null when there
/// is none; there are `namesCount()`. `addName(index, ...)` puts one before
/// the one at `index`, `appendName(...)` adds one at the end, `removeName(index)`
/// takes one away; a set that was referred to stays in the metadata. These
/// throw Exceptions::IndexOutOfBounds for an index beyond the end, and as
/// above.
///
/// What changes an attribute, other than a single reference, throws
/// Exceptions::NotFound when the schema lacks it, and std::bad_cast when it
/// has it as another kind of attribute.
namespace Structural {

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

}
}}
