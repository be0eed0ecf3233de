#pragma once

#include "Platform/Export.h"

namespace Vantry {
namespace Types {
class UniversalLabel;
}

/// Labels of the attributes of structural metadata (SMPTE 377M and the
/// standards that map essence), by the class that has them. An attribute of
/// several classes stands under the first of them.
namespace Metadata { namespace Structural { namespace StructuralMetadataULs {

/// No label at all: sixteen zero bytes, as an attribute nobody knows has.
VANTRY_EXPORT Types::UniversalLabel const & null() noexcept;

/// Identifies a set within the file; references carry it.
VANTRY_EXPORT Types::UniversalLabel const & instanceUID() noexcept;

// TrackableMetadataSet

/// The application run that changed the set last: an Identification, by its
/// generation.
VANTRY_EXPORT Types::UniversalLabel const & generationUID() noexcept;

// Preface

/// The package to play when the user doesn't choose one.
VANTRY_EXPORT Types::UniversalLabel const & primaryPackage() noexcept;

/// The set that owns all packages of the file.
VANTRY_EXPORT Types::UniversalLabel const & contentStorage() noexcept;

/// When the file was changed last.
VANTRY_EXPORT Types::UniversalLabel const & lastModifiedDate() noexcept;

/// Version of SMPTE 377M that the metadata follows: 258 for 1.2, 259 for 1.3.
VANTRY_EXPORT Types::UniversalLabel const & version() noexcept;

/// Version of the object model; 1.
VANTRY_EXPORT Types::UniversalLabel const & objectModelVersion() noexcept;

/// How complex the file is: the label of its operational pattern.
VANTRY_EXPORT Types::UniversalLabel const & operationalPattern() noexcept;

/// The applications that wrote or changed the file, each with the time of its
/// change, oldest first.
VANTRY_EXPORT Types::UniversalLabel const & identificationList() noexcept;

/// Labels of the essence containers used in the file, or referred to by it.
VANTRY_EXPORT Types::UniversalLabel const & essenceContainers() noexcept;

/// Labels of the descriptive metadata schemes used in the file.
VANTRY_EXPORT Types::UniversalLabel const & dmSchemes() noexcept;

// Identification

/// Identifies this run of the application; sets that it changed refer to it by
/// their generation.
VANTRY_EXPORT Types::UniversalLabel const & thisGenerationUID() noexcept;

/// Maker of the application.
VANTRY_EXPORT Types::UniversalLabel const & companyName() noexcept;

/// Name of the application.
VANTRY_EXPORT Types::UniversalLabel const & productName() noexcept;

/// Version of the application, as numbers.
VANTRY_EXPORT Types::UniversalLabel const & productVersion() noexcept;

/// Version of the application, as text for people.
VANTRY_EXPORT Types::UniversalLabel const & versionString() noexcept;

/// Identifies the application whatever its version is.
VANTRY_EXPORT Types::UniversalLabel const & productUID() noexcept;

/// When the application changed the file.
VANTRY_EXPORT Types::UniversalLabel const & modifiedDate() noexcept;

/// Version of the library that the application wrote the file with.
VANTRY_EXPORT Types::UniversalLabel const & toolkitVersion() noexcept;

/// Operating system and library that the file was written with.
VANTRY_EXPORT Types::UniversalLabel const & platform() noexcept;

// ContentStorage

/// All packages of the file, material and source.
VANTRY_EXPORT Types::UniversalLabel const & packages() noexcept;

/// The essence containers that lie in the file, with the streams that carry
/// them.
VANTRY_EXPORT Types::UniversalLabel const & essenceContainerData() noexcept;

// EssenceContainerData

/// Identifier of the source package that describes the container.
VANTRY_EXPORT Types::UniversalLabel const & linkedPackageUID() noexcept;

/// Number of the stream with the container's index table; absent or 0 without
/// one.
VANTRY_EXPORT Types::UniversalLabel const & indexSID() noexcept;

/// Number of the stream with the container's essence.
VANTRY_EXPORT Types::UniversalLabel const & bodySID() noexcept;

// GenericPackage

/// Identifies the package among all packages everywhere.
VANTRY_EXPORT Types::UniversalLabel const & packageUID() noexcept;

/// Name of the package for people.
VANTRY_EXPORT Types::UniversalLabel const & packageName() noexcept;

/// When the package was created.
VANTRY_EXPORT Types::UniversalLabel const & packageCreationDate() noexcept;

/// When the package was changed last.
VANTRY_EXPORT Types::UniversalLabel const & packageModifiedDate() noexcept;

/// The tracks of the package.
VANTRY_EXPORT Types::UniversalLabel const & tracks() noexcept;

// SourcePackage

/// Describes the essence of the package, or where it came from.
VANTRY_EXPORT Types::UniversalLabel const & descriptor() noexcept;

// Track

/// What happens along the track.
VANTRY_EXPORT Types::UniversalLabel const & sequence() noexcept;

/// Number of the track, its own within the package; source clips refer to it.
VANTRY_EXPORT Types::UniversalLabel const & trackID() noexcept;

/// In a package with essence in the file, bytes 12 to 15 of the element keys of
/// the track's essence; 0 elsewhere.
VANTRY_EXPORT Types::UniversalLabel const & trackNumber() noexcept;

/// Name of the track for people.
VANTRY_EXPORT Types::UniversalLabel const & trackName() noexcept;

// TimelineTrack

/// Edit units per second; positions and durations on the track are counted in
/// them.
VANTRY_EXPORT Types::UniversalLabel const & editRate() noexcept;

/// Where time 0 of the track lies, in edit units from the start of its essence;
/// what comes before is pre-charge.
VANTRY_EXPORT Types::UniversalLabel const & origin() noexcept;

// EventTrack

/// Edit units per second; the start and duration of the track's events are
/// counted in them.
VANTRY_EXPORT Types::UniversalLabel const & eventEditRate() noexcept;

/// Where time 0 of the track lies, in edit units from the start of its events.
VANTRY_EXPORT Types::UniversalLabel const & eventOrigin() noexcept;

// Sequence

/// The parts that make up the sequence, in playing order.
VANTRY_EXPORT Types::UniversalLabel const & structuralComponents() noexcept;

/// Kind of the data: picture, sound, data, time code or descriptive metadata;
/// see DataDefinitionULs.
VANTRY_EXPORT Types::UniversalLabel const & dataDefinition() noexcept;

/// Length in edit units of the track; -1 when it isn't known.
VANTRY_EXPORT Types::UniversalLabel const & duration() noexcept;

// SourceClip

/// Where the clip begins in the track it refers to, in edit units of its own
/// track.
VANTRY_EXPORT Types::UniversalLabel const & startPosition() noexcept;

/// Identifier of the package that the clip refers to; all zero where the chain
/// of sources ends.
VANTRY_EXPORT Types::UniversalLabel const & sourcePackageID() noexcept;

/// Number of the track in the package that the clip refers to; 0 where the
/// chain of sources ends.
VANTRY_EXPORT Types::UniversalLabel const & sourceTrackID() noexcept;

// DMSourceClip

/// Numbers of the tracks in the same package that the clip describes; without
/// any, all essence tracks.
VANTRY_EXPORT Types::UniversalLabel const & dmSourceClipTrackIDs() noexcept;

// DMSegment

/// The framework of descriptive metadata: a set of a descriptive metadata
/// scheme.
VANTRY_EXPORT Types::UniversalLabel const & dmFramework() noexcept;

/// Where the event begins, in edit units of its event track.
VANTRY_EXPORT Types::UniversalLabel const & eventStartPosition() noexcept;

/// Remark on the event for people.
VANTRY_EXPORT Types::UniversalLabel const & eventComment() noexcept;

/// Numbers of the tracks in the same package that the segment describes;
/// without any, all essence tracks.
VANTRY_EXPORT Types::UniversalLabel const & dmSegmentTrackIDs() noexcept;

// TimecodeComponent

/// Frames per second that the time code counts, rounded up: 24, 25, 30, 50 or
/// 60.
VANTRY_EXPORT Types::UniversalLabel const & roundedTimecodeBase() noexcept;

/// Time code at the start of the component, in frames since midnight.
VANTRY_EXPORT Types::UniversalLabel const & startTimecode() noexcept;

/// Whether frame numbers are dropped so that the time code follows the clock at
/// 30000/1001 frames per second.
VANTRY_EXPORT Types::UniversalLabel const & dropFrame() noexcept;

// GenericDescriptor

/// Where the essence can be found that isn't in the file, best place first.
VANTRY_EXPORT Types::UniversalLabel const & locators() noexcept;

/// Further descriptions, each of one aspect, beside this one.
VANTRY_EXPORT Types::UniversalLabel const & subDescriptors() noexcept;

// FileDescriptor

/// Number of the track that is described, if only one is.
VANTRY_EXPORT Types::UniversalLabel const & linkedTrackID() noexcept;

/// Edit units of the essence container per second.
VANTRY_EXPORT Types::UniversalLabel const & sampleRate() noexcept;

/// Length of the container in units of the sample rate; absent while it isn't
/// known.
VANTRY_EXPORT Types::UniversalLabel const & containerDuration() noexcept;

/// Label of the essence container that carries what is described.
VANTRY_EXPORT Types::UniversalLabel const & essenceContainer() noexcept;

/// Label of the compression, as an application of long ago may have registered
/// it; the coding labels of the derived descriptors tell more.
VANTRY_EXPORT Types::UniversalLabel const & codec() noexcept;

// GenericPictureEssenceDescriptor

/// The standard that the signal follows.
VANTRY_EXPORT Types::UniversalLabel const & signalStandard() noexcept;

/// How lines lie in a frame: 0 full frame, 1 separate fields, 2 one field, 3
/// mixed fields, 4 segmented frame.
VANTRY_EXPORT Types::UniversalLabel const & frameLayout() noexcept;

/// Samples in a line as stored.
VANTRY_EXPORT Types::UniversalLabel const & storedWidth() noexcept;

/// Lines as stored, of one field where the frame layout has separate fields.
VANTRY_EXPORT Types::UniversalLabel const & storedHeight() noexcept;

/// Lines that field 2 lies below field 1: 0 or -1.
VANTRY_EXPORT Types::UniversalLabel const & storedF2Offset() noexcept;

/// Samples in a line that were sampled from the signal; the stored width if
/// absent.
VANTRY_EXPORT Types::UniversalLabel const & sampledWidth() noexcept;

/// Lines that were sampled from the signal; the stored height if absent.
VANTRY_EXPORT Types::UniversalLabel const & sampledHeight() noexcept;

/// First sampled sample of a line, counted from the first stored one.
VANTRY_EXPORT Types::UniversalLabel const & sampledXOffset() noexcept;

/// First sampled line, counted from the first stored one.
VANTRY_EXPORT Types::UniversalLabel const & sampledYOffset() noexcept;

/// Lines to show; the sampled height if absent.
VANTRY_EXPORT Types::UniversalLabel const & displayHeight() noexcept;

/// Samples of a line to show; the sampled width if absent.
VANTRY_EXPORT Types::UniversalLabel const & displayWidth() noexcept;

/// First sample of a line to show, counted from the first sampled one.
VANTRY_EXPORT Types::UniversalLabel const & displayXOffset() noexcept;

/// First line to show, counted from the first sampled one.
VANTRY_EXPORT Types::UniversalLabel const & displayYOffset() noexcept;

/// Lines that field 2 is shown lower than field 1: 0 or -1.
VANTRY_EXPORT Types::UniversalLabel const & displayF2Offset() noexcept;

/// Width to height of the whole picture as shown, 4/3 or 16/9.
VANTRY_EXPORT Types::UniversalLabel const & aspectRatio() noexcept;

/// Which area of the picture has content, as SMPTE 2016-1 codes it.
VANTRY_EXPORT Types::UniversalLabel const & activeFormatDescriptor() noexcept;

/// Line numbers of the signal that the first stored line of each field comes
/// from.
VANTRY_EXPORT Types::UniversalLabel const & videoLineMap() noexcept;

/// Which alpha value is transparent: 0 the lowest, 1 the highest.
VANTRY_EXPORT Types::UniversalLabel const & alphaTransparency() noexcept;

/// Label of the transfer function between light and samples.
VANTRY_EXPORT Types::UniversalLabel const & captureGamma() noexcept;

/// Each stored image begins at a multiple of as many bytes; 0 and 1 without
/// alignment.
VANTRY_EXPORT Types::UniversalLabel const & imageAlignmentOffset() noexcept;

/// Unused bytes ahead of each stored image.
VANTRY_EXPORT Types::UniversalLabel const & imageStartOffset() noexcept;

/// Unused bytes behind each stored image.
VANTRY_EXPORT Types::UniversalLabel const & imageEndOffset() noexcept;

/// Which field comes first in time: 1 or 2.
VANTRY_EXPORT Types::UniversalLabel const & fieldDominance() noexcept;

/// Label of the picture's compression.
VANTRY_EXPORT Types::UniversalLabel const & pictureEssenceCoding() noexcept;

// CDCIEssenceDescriptor

/// Bits of a sample of a colour component: 8, 10, 12 or 16.
VANTRY_EXPORT Types::UniversalLabel const & componentDepth() noexcept;

/// Luminance samples to each colour difference sample in a line: 1 for 4:4:4, 2
/// for 4:2:2, 4 for 4:1:1.
VANTRY_EXPORT Types::UniversalLabel const & horizontalSubsampling() noexcept;

/// Luminance lines to each line of colour differences: 1, or 2 for 4:2:0.
VANTRY_EXPORT Types::UniversalLabel const & verticalSubsampling() noexcept;

/// Where colour difference samples lie between those of luminance: 0 co-sited,
/// 1 midpoint, 2 three-tap, 3 quincunx, 4 Rec. 601.
VANTRY_EXPORT Types::UniversalLabel const & colorSiting() noexcept;

/// Whether luminance precedes the colour differences of its pair, against the
/// order of Rec. 601.
VANTRY_EXPORT Types::UniversalLabel const & reversedByteOrder() noexcept;

/// Unused bits of each sample, to the right of it.
VANTRY_EXPORT Types::UniversalLabel const & paddingBits() noexcept;

/// Bits of a sample of the alpha component.
VANTRY_EXPORT Types::UniversalLabel const & alphaSampleDepth() noexcept;

/// Luminance sample for black, 16 with 8 bits by Rec. 601.
VANTRY_EXPORT Types::UniversalLabel const & blackRefLevel() noexcept;

/// Luminance sample for white, 235 with 8 bits by Rec. 601.
VANTRY_EXPORT Types::UniversalLabel const & whiteRefLevel() noexcept;

/// How many values the colour differences take, 225 with 8 bits by Rec. 601.
VANTRY_EXPORT Types::UniversalLabel const & colorRange() noexcept;

// MPEG2VideoDescriptor

/// Whether the stream has one sequence header only, or all are equal.
VANTRY_EXPORT Types::UniversalLabel const & singleSequence() noexcept;

/// Whether the number of B pictures between others never changes.
VANTRY_EXPORT Types::UniversalLabel const & constantBFrames() noexcept;

/// Coding of frames: 0 unknown, 1 progressive, 2 interlaced, 3 mixed.
VANTRY_EXPORT Types::UniversalLabel const & codedContentType() noexcept;

/// Whether the stream's low delay flag is set, which rules out B pictures.
VANTRY_EXPORT Types::UniversalLabel const & lowDelay() noexcept;

/// Whether all groups of pictures can be decoded without the one before.
VANTRY_EXPORT Types::UniversalLabel const & closedGOP() noexcept;

/// Whether all groups of pictures have the same pattern.
VANTRY_EXPORT Types::UniversalLabel const & identicalGOP() noexcept;

/// Greatest distance between I pictures, in frames; 0 when it is unlimited.
VANTRY_EXPORT Types::UniversalLabel const & maxGOP() noexcept;

/// Greatest number of B pictures between others.
VANTRY_EXPORT Types::UniversalLabel const & bPictureCount() noexcept;

/// Greatest bits per second of the stream.
VANTRY_EXPORT Types::UniversalLabel const & bitRate() noexcept;

/// Profile and level byte of the sequence extension (ISO 13818-2).
VANTRY_EXPORT Types::UniversalLabel const & profileAndLevel() noexcept;

// RGBAEssenceDescriptor

/// Sample value of a fully lit component: the white reference.
VANTRY_EXPORT Types::UniversalLabel const & componentMaxRef() noexcept;

/// Sample value of an unlit component: the black reference.
VANTRY_EXPORT Types::UniversalLabel const & componentMinRef() noexcept;

/// Sample value of the alpha component at its greatest.
VANTRY_EXPORT Types::UniversalLabel const & alphaMaxRef() noexcept;

/// Sample value of the alpha component at its smallest.
VANTRY_EXPORT Types::UniversalLabel const & alphaMinRef() noexcept;

/// Order in which samples and lines are stored: 0 from left to right and from
/// top to bottom.
VANTRY_EXPORT Types::UniversalLabel const & scanningDirection() noexcept;

/// Components of a pixel in the order stored, each with its bits.
VANTRY_EXPORT Types::UniversalLabel const & pixelLayout() noexcept;

/// The colours that pixels are numbers of.
VANTRY_EXPORT Types::UniversalLabel const & palette() noexcept;

/// Components of a colour of the palette in the order stored, each with its
/// bits.
VANTRY_EXPORT Types::UniversalLabel const & paletteLayout() noexcept;

// GenericSoundEssenceDescriptor

/// Samples per second of each channel.
VANTRY_EXPORT Types::UniversalLabel const & audioSamplingRate() noexcept;

/// Whether the sampling rate is locked to the picture.
VANTRY_EXPORT Types::UniversalLabel const & lockedUnlocked() noexcept;

/// Level of the reference tone: dBm for 0 VU.
VANTRY_EXPORT Types::UniversalLabel const & audioRefLevel() noexcept;

/// Use of the channels, as in AES3 channel status: 0 not told, 1 two-channel, 2
/// single channel, 3 primary and secondary, 4 stereo, 7 single channel at
/// doubled rate, 8 left and 9 right of such stereo, 15 multichannel.
VANTRY_EXPORT Types::UniversalLabel const & electroSpatialFormulation() noexcept;

/// Number of sound channels.
VANTRY_EXPORT Types::UniversalLabel const & channelCount() noexcept;

/// Bits of a sample.
VANTRY_EXPORT Types::UniversalLabel const & quantizationBits() noexcept;

/// Gain in dB that brings the level of speech to the normal one.
VANTRY_EXPORT Types::UniversalLabel const & dialNorm() noexcept;

/// Label of the sound's compression; absent when there is none.
VANTRY_EXPORT Types::UniversalLabel const & soundEssenceCompression() noexcept;

// MPEGAudioDescriptor

/// Greatest bits per second of the stream.
VANTRY_EXPORT Types::UniversalLabel const & mpegAudioBitRate() noexcept;

// WAVEAudioEssenceDescriptor

/// Bytes of a sample of all channels.
VANTRY_EXPORT Types::UniversalLabel const & blockAlign() noexcept;

/// Place of the first frame in the sequence of frames whose lengths in samples
/// differ, by SMPTE 382M: 0 to 4.
VANTRY_EXPORT Types::UniversalLabel const & sequenceOffset() noexcept;

/// Average bytes per second, of all channels.
VANTRY_EXPORT Types::UniversalLabel const & avgBps() noexcept;

/// Label of the rule that says which channel carries what.
VANTRY_EXPORT Types::UniversalLabel const & channelAssignment() noexcept;

/// Version of the peak envelope.
VANTRY_EXPORT Types::UniversalLabel const & peakEnvelopeVersion() noexcept;

/// Format of a peak point: 1 for 8 bits, 2 for 16 bits.
VANTRY_EXPORT Types::UniversalLabel const & peakEnvelopeFormat() noexcept;

/// Points to a peak value: 1 for the greatest magnitude, 2 for the greatest and
/// the smallest sample.
VANTRY_EXPORT Types::UniversalLabel const & pointsPerPeakValue() noexcept;

/// Samples of each channel to a peak value.
VANTRY_EXPORT Types::UniversalLabel const & peakEnvelopeBlockSize() noexcept;

/// Channels in the peak envelope.
VANTRY_EXPORT Types::UniversalLabel const & peakChannels() noexcept;

/// Number of peak frames, each with a peak value of every channel.
VANTRY_EXPORT Types::UniversalLabel const & peakFrames() noexcept;

/// Sample at which the highest peak stands, counted from 0; -1 when it isn't
/// known.
VANTRY_EXPORT Types::UniversalLabel const & peakOfPeaksPosition() noexcept;

/// When the peak envelope was made.
VANTRY_EXPORT Types::UniversalLabel const & peakEnvelopeTimestamp() noexcept;

/// The stream with the peak values.
VANTRY_EXPORT Types::UniversalLabel const & peakEnvelopeData() noexcept;

// AES3AudioEssenceDescriptor

/// Emphasis of the channels, coded as in AES3 channel status.
VANTRY_EXPORT Types::UniversalLabel const & emphasis() noexcept;

/// Place in the essence of the first AES3 block start, in samples.
VANTRY_EXPORT Types::UniversalLabel const & blockStartOffset() noexcept;

/// Use of the auxiliary bits, as in AES3 channel status.
VANTRY_EXPORT Types::UniversalLabel const & auxBitsMode() noexcept;

/// How channel status is carried, one value per channel (SMPTE 382M): 0 not at
/// all, 1 AES3 minimum, 2 AES3 standard, 3 fixed, 4 in a stream of the
/// metadata, 5 beside the essence.
VANTRY_EXPORT Types::UniversalLabel const & channelStatusMode() noexcept;

/// The channel status of each channel where it is fixed: 24 bytes each.
VANTRY_EXPORT Types::UniversalLabel const & fixedChannelStatusData() noexcept;

/// How user data are carried, one value per channel, as SMPTE 382M codes it.
VANTRY_EXPORT Types::UniversalLabel const & userDataMode() noexcept;

/// The user data of each channel where they are fixed: 24 bytes each.
VANTRY_EXPORT Types::UniversalLabel const & fixedUserData() noexcept;

/// Number of the time code track that belongs to the sound.
VANTRY_EXPORT Types::UniversalLabel const & linkedTimecodeTrackID() noexcept;

/// Number of the data stream of SMPTE 337M that is described.
VANTRY_EXPORT Types::UniversalLabel const & smpte337mDataStreamNumber() noexcept;

// GenericDataEssenceDescriptor

/// Label of the data's coding.
VANTRY_EXPORT Types::UniversalLabel const & dataEssenceCoding() noexcept;

// MultipleDescriptor

/// The descriptors of the tracks or containers one by one.
VANTRY_EXPORT Types::UniversalLabel const & subDescriptorUIDs() noexcept;

// SMPTE331MTimeDateItemDescriptor

/// Date and time values per second.
VANTRY_EXPORT Types::UniversalLabel const & dateTimeRate() noexcept;

/// Whether the time skips numbers as a drop frame time code does.
VANTRY_EXPORT Types::UniversalLabel const & dateTimeDropFrame() noexcept;

/// Whether the time comes embedded in other essence.
VANTRY_EXPORT Types::UniversalLabel const & dateTimeEmbeded() noexcept;

/// Label of the format of date and time.
VANTRY_EXPORT Types::UniversalLabel const & dateTimeKind() noexcept;

// WAVEAudioPhysicalDescriptor

/// How the sound was coded before, one line per step (EBU R98).
VANTRY_EXPORT Types::UniversalLabel const & codingHistory() noexcept;

/// Security code of the quality report.
VANTRY_EXPORT Types::UniversalLabel const & fileSecurityReport() noexcept;

/// Security code of the sound.
VANTRY_EXPORT Types::UniversalLabel const & fileSecurityWave() noexcept;

/// Basic facts of the quality report.
VANTRY_EXPORT Types::UniversalLabel const & basicData() noexcept;

/// When modulation began in the original recording.
VANTRY_EXPORT Types::UniversalLabel const & startModulation() noexcept;

/// Events that touch quality.
VANTRY_EXPORT Types::UniversalLabel const & qualityEvent() noexcept;

/// When modulation ended in the original recording.
VANTRY_EXPORT Types::UniversalLabel const & endModulation() noexcept;

/// Measured parameters of quality.
VANTRY_EXPORT Types::UniversalLabel const & qualityParameter() noexcept;

/// Remarks of the operator.
VANTRY_EXPORT Types::UniversalLabel const & operatorComment() noexcept;

/// The cue sheet.
VANTRY_EXPORT Types::UniversalLabel const & cueSheet() noexcept;

/// Chunks of the wave file that the writer didn't know, kept whole.
VANTRY_EXPORT Types::UniversalLabel const & unknownBWFChunks() noexcept;

// JPEG2000PictureSubDescriptor

/// Capabilities that a decoder needs.
VANTRY_EXPORT Types::UniversalLabel const & rsiz() noexcept;

/// Width of the reference grid.
VANTRY_EXPORT Types::UniversalLabel const & xsiz() noexcept;

/// Height of the reference grid.
VANTRY_EXPORT Types::UniversalLabel const & ysiz() noexcept;

/// Left edge of the image area on the reference grid.
VANTRY_EXPORT Types::UniversalLabel const & xOsiz() noexcept;

/// Top edge of the image area on the reference grid.
VANTRY_EXPORT Types::UniversalLabel const & yOsiz() noexcept;

/// Width of a tile on the reference grid.
VANTRY_EXPORT Types::UniversalLabel const & xTsiz() noexcept;

/// Height of a tile on the reference grid.
VANTRY_EXPORT Types::UniversalLabel const & yTsiz() noexcept;

/// Left edge of the first tile on the reference grid.
VANTRY_EXPORT Types::UniversalLabel const & xTOsiz() noexcept;

/// Top edge of the first tile on the reference grid.
VANTRY_EXPORT Types::UniversalLabel const & yTOsiz() noexcept;

/// Number of components.
VANTRY_EXPORT Types::UniversalLabel const & csiz() noexcept;

/// The main header's default of the coding style, without its marker and
/// length.
VANTRY_EXPORT Types::UniversalLabel const & codingStyleDefault() noexcept;

/// The main header's default of the quantisation, without its marker and
/// length.
VANTRY_EXPORT Types::UniversalLabel const & quantisationDefault() noexcept;

/// Depth and subsampling of each component.
VANTRY_EXPORT Types::UniversalLabel const & pictureComponentSizing() noexcept;

// NetworkLocator

/// Where the essence is: an absolute or relative URL (RFC 3986).
VANTRY_EXPORT Types::UniversalLabel const & urlString() noexcept;

// TextLocator

/// Where the essence is, in words for people.
VANTRY_EXPORT Types::UniversalLabel const & locatorName() noexcept;

// UnknownChunkSet

/// The chunk's four letters.
VANTRY_EXPORT Types::UniversalLabel const & chunkID() noexcept;

/// Bytes of the chunk.
VANTRY_EXPORT Types::UniversalLabel const & chunkLength() noexcept;

/// The chunk's bytes, in a stream of their own.
VANTRY_EXPORT Types::UniversalLabel const & chunckData() noexcept;

// Cryptographic frameworks and time code streams

/// Whether the time code stream keeps its synchronisation bits.
VANTRY_EXPORT Types::UniversalLabel const & includeSync() noexcept;

/// Where a time code stream comes from.
VANTRY_EXPORT Types::UniversalLabel const & sourceTimecodeType() noexcept;

/// A stream of time code samples.
VANTRY_EXPORT Types::UniversalLabel const & tcDataStream() noexcept;

/// Samples per second of a time code stream.
VANTRY_EXPORT Types::UniversalLabel const & tcSampleRate() noexcept;

/// The context of a cryptographic framework (SMPTE 429-6).
VANTRY_EXPORT Types::UniversalLabel const & contextHolder() noexcept;

/// Identifies a cryptographic context.
VANTRY_EXPORT Types::UniversalLabel const & cryptographicContextID() noexcept;

/// Label of the essence container before it was encrypted.
VANTRY_EXPORT Types::UniversalLabel const & sourceContainerFormat() noexcept;

/// Label of the cipher.
VANTRY_EXPORT Types::UniversalLabel const & cipherAlgorithm() noexcept;

/// Label of the algorithm that guards integrity.
VANTRY_EXPORT Types::UniversalLabel const & mICAlgorithm() noexcept;

/// Identifies the key of the cipher.
VANTRY_EXPORT Types::UniversalLabel const & cryptographicKeyID() noexcept;

}}}
}
