// The attributes of the classes of structural metadata, one row each: class,
// accessor, type or class of the target, version and item bytes of the label.
//
//     VALUE(Class, name, Type, label)
//     ARRAY, BATCH(Class, name, Name, names, Type, label)
//     REFERENCE(Class, name, Target, label)
//     REFERENCE_ARRAY, REFERENCE_BATCH(Class, name, Name, names, Target, label)
//
// Three have accessors of their own form, which the test gives.
//     GENERATION, SOURCE_TRACK, SEGMENT_TRACKS(Type, label)

GENERATION(UUID, "02 05 20 07 01 08 00 00 00")

REFERENCE(Preface, primaryPackage, GenericPackage, "04 06 01 01 04 01 08 00 00")
REFERENCE(Preface, contentStorage, ContentStorage, "02 06 01 01 04 02 01 00 00")
VALUE(Preface, lastModifiedDate, Timestamp, "02 07 02 01 10 02 04 00 00")
VALUE(Preface, version, VersionType, "02 03 01 02 01 05 00 00 00")
VALUE(Preface, objectModelVersion, UInt32, "02 03 01 02 01 04 00 00 00")
VALUE(Preface, operationalPattern, UniversalLabel, "05 01 02 02 03 00 00 00 00")
REFERENCE_ARRAY(Preface, identification, Identification, identifications, Identification, "02 06 01 01 04 06 04 00 00")
BATCH(Preface, essenceContainer, EssenceContainer, essenceContainers, UniversalLabel, "05 01 02 02 10 02 01 00 00")
BATCH(Preface, dmScheme, DmScheme, dmSchemes, UniversalLabel, "05 01 02 02 10 02 02 00 00")

VALUE(Identification, thisGenerationUID, UUID, "02 05 20 07 01 01 00 00 00")
VALUE(Identification, companyName, UTF16String, "02 05 20 07 01 02 01 00 00")
VALUE(Identification, productName, UTF16String, "02 05 20 07 01 03 01 00 00")
VALUE(Identification, productVersion, ProductVersion, "02 05 20 07 01 04 00 00 00")
VALUE(Identification, versionString, UTF16String, "02 05 20 07 01 05 01 00 00")
VALUE(Identification, productUID, UUID, "02 05 20 07 01 07 00 00 00")
VALUE(Identification, modifiedDate, Timestamp, "02 07 02 01 10 02 03 00 00")
VALUE(Identification, toolkitVersion, ProductVersion, "02 05 20 07 01 0A 00 00 00")
VALUE(Identification, platform, UTF16String, "02 05 20 07 01 06 01 00 00")

REFERENCE_BATCH(ContentStorage, package, Package, packages, GenericPackage, "02 06 01 01 04 05 01 00 00")
REFERENCE_BATCH(ContentStorage, essenceContainerData, EssenceContainerData, essenceContainerData, EssenceContainerData,
                "02 06 01 01 04 05 02 00 00")

VALUE(EssenceContainerData, linkedPackageUID, UMID32, "02 06 01 01 06 01 00 00 00")
VALUE(EssenceContainerData, indexSID, UInt32, "04 01 03 04 05 00 00 00 00")
VALUE(EssenceContainerData, bodySID, UInt32, "04 01 03 04 04 00 00 00 00")

VALUE(GenericPackage, packageUID, UMID32, "01 01 01 15 10 00 00 00 00")
VALUE(GenericPackage, packageName, UTF16String, "01 01 03 03 02 01 00 00 00")
VALUE(GenericPackage, packageCreationDate, Timestamp, "02 07 02 01 10 01 03 00 00")
VALUE(GenericPackage, packageModifiedDate, Timestamp, "02 07 02 01 10 02 05 00 00")
REFERENCE_ARRAY(GenericPackage, track, Track, tracks, Track, "02 06 01 01 04 06 05 00 00")

REFERENCE(SourcePackage, descriptor, GenericDescriptor, "02 06 01 01 04 02 03 00 00")

REFERENCE(Track, sequence, Sequence, "02 06 01 01 04 02 04 00 00")
VALUE(Track, trackID, UInt32, "02 01 07 01 01 00 00 00 00")
VALUE(Track, trackNumber, UInt32, "02 01 04 01 03 00 00 00 00")
VALUE(Track, trackName, UTF16String, "02 01 07 01 02 01 00 00 00")

VALUE(TimelineTrack, editRate, Rational, "02 05 30 04 05 00 00 00 00")
VALUE(TimelineTrack, origin, Position, "02 07 02 01 03 01 03 00 00")

VALUE(EventTrack, eventEditRate, Rational, "02 05 30 04 02 00 00 00 00")
VALUE(EventTrack, eventOrigin, Position, "05 07 02 01 03 01 0B 00 00")

REFERENCE_ARRAY(Sequence, structuralComponent, StructuralComponent, structuralComponents, StructuralComponent,
                "02 06 01 01 04 06 09 00 00")
VALUE(Sequence, dataDefinition, UniversalLabel, "02 04 07 01 00 00 00 00 00")
VALUE(Sequence, duration, Length, "02 07 02 02 01 01 03 00 00")

VALUE(SourceClip, dataDefinition, UniversalLabel, "02 04 07 01 00 00 00 00 00")
VALUE(SourceClip, duration, Length, "02 07 02 02 01 01 03 00 00")
VALUE(SourceClip, startPosition, Position, "02 07 02 01 03 01 04 00 00")
VALUE(SourceClip, sourcePackageUID, UMID32, "02 06 01 01 03 01 00 00 00")
SOURCE_TRACK(UInt32, "02 06 01 01 03 02 00 00 00")

BATCH(DMSourceClip, tracks, Tracks, tracks, UInt32, "05 01 07 01 06 00 00 00 00")

REFERENCE(DMSegment, dmFramework, MetadataSet, "05 06 01 01 04 02 0C 00 00")
VALUE(DMSegment, eventStartPosition, Position, "02 07 02 01 03 03 03 00 00")
VALUE(DMSegment, eventComment, UTF16String, "02 05 30 04 04 01 00 00 00")
SEGMENT_TRACKS(UInt32, "04 01 07 01 05 00 00 00 00")
VALUE(DMSegment, dataDefinition, UniversalLabel, "02 04 07 01 00 00 00 00 00")
VALUE(DMSegment, duration, Length, "02 07 02 02 01 01 03 00 00")

VALUE(TimecodeComponent, dataDefinition, UniversalLabel, "02 04 07 01 00 00 00 00 00")
VALUE(TimecodeComponent, duration, Length, "02 07 02 02 01 01 03 00 00")
VALUE(TimecodeComponent, roundedTimecodeBase, UInt16, "02 04 04 01 01 02 06 00 00")
VALUE(TimecodeComponent, startTimecode, Position, "02 07 02 01 03 01 05 00 00")
VALUE(TimecodeComponent, dropFrame, Boolean, "01 04 04 01 01 05 00 00 00")

REFERENCE_ARRAY(GenericDescriptor, locator, Locator, locators, Locator, "02 06 01 01 04 06 03 00 00")
REFERENCE_ARRAY(GenericDescriptor, linkedSubDescriptor, LinkedSubDescriptor, linkedSubDescriptors, SubDescriptor,
                "09 06 01 01 04 06 10 00 00")

VALUE(FileDescriptor, linkedTrack, UInt32, "05 06 01 01 03 05 00 00 00")
VALUE(FileDescriptor, sampleRate, Rational, "01 04 06 01 01 00 00 00 00")
VALUE(FileDescriptor, containerDuration, Length, "01 04 06 01 02 00 00 00 00")
VALUE(FileDescriptor, essenceContainer, UniversalLabel, "02 06 01 01 04 01 02 00 00")
VALUE(FileDescriptor, codec, UniversalLabel, "02 06 01 01 04 01 03 00 00")

VALUE(GenericPictureEssenceDescriptor, signalStandard, SignalStandard, "05 04 05 01 13 00 00 00 00")
VALUE(GenericPictureEssenceDescriptor, frameLayout, UInt8, "01 04 01 03 01 04 00 00 00")
VALUE(GenericPictureEssenceDescriptor, storedWidth, UInt32, "01 04 01 05 02 02 00 00 00")
VALUE(GenericPictureEssenceDescriptor, storedHeight, UInt32, "01 04 01 05 02 01 00 00 00")
VALUE(GenericPictureEssenceDescriptor, storedF2Offset, Int32, "05 04 01 03 02 08 00 00 00")
VALUE(GenericPictureEssenceDescriptor, sampledWidth, UInt32, "01 04 01 05 01 08 00 00 00")
VALUE(GenericPictureEssenceDescriptor, sampledHeight, UInt32, "01 04 01 05 01 07 00 00 00")
VALUE(GenericPictureEssenceDescriptor, sampledXOffset, Int32, "01 04 01 05 01 09 00 00 00")
VALUE(GenericPictureEssenceDescriptor, sampledYOffset, Int32, "01 04 01 05 01 0A 00 00 00")
VALUE(GenericPictureEssenceDescriptor, displayHeight, UInt32, "01 04 01 05 01 0B 00 00 00")
VALUE(GenericPictureEssenceDescriptor, displayWidth, UInt32, "01 04 01 05 01 0C 00 00 00")
VALUE(GenericPictureEssenceDescriptor, displayXOffset, Int32, "01 04 01 05 01 0D 00 00 00")
VALUE(GenericPictureEssenceDescriptor, displayYOffset, Int32, "01 04 01 05 01 0E 00 00 00")
VALUE(GenericPictureEssenceDescriptor, displayF2Offset, Int32, "05 04 01 03 02 07 00 00 00")
VALUE(GenericPictureEssenceDescriptor, aspectRatio, Rational, "01 04 01 01 01 01 00 00 00")
VALUE(GenericPictureEssenceDescriptor, activeFormatDescriptor, UInt8, "05 04 01 03 02 09 00 00 00")
ARRAY(GenericPictureEssenceDescriptor, videoLineMap, VideoLineMap, videoLineMap, Int32, "02 04 01 03 02 05 00 00 00")
VALUE(GenericPictureEssenceDescriptor, alphaTransparency, UInt8, "02 05 20 01 02 00 00 00 00")
VALUE(GenericPictureEssenceDescriptor, captureGamma, UniversalLabel, "02 04 01 02 01 01 01 02 00")
VALUE(GenericPictureEssenceDescriptor, imageAlignmentOffset, UInt32, "02 04 18 01 01 00 00 00 00")
VALUE(GenericPictureEssenceDescriptor, imageStartOffset, UInt32, "02 04 18 01 02 00 00 00 00")
VALUE(GenericPictureEssenceDescriptor, imageEndOffset, UInt32, "02 04 18 01 03 00 00 00 00")
VALUE(GenericPictureEssenceDescriptor, fieldDominance, UInt8, "02 04 01 03 01 06 00 00 00")
VALUE(GenericPictureEssenceDescriptor, pictureEssenceCoding, UniversalLabel, "02 04 01 06 01 00 00 00 00")

VALUE(CDCIEssenceDescriptor, componentDepth, UInt32, "02 04 01 05 03 0A 00 00 00")
VALUE(CDCIEssenceDescriptor, horizontalSubsampling, UInt32, "01 04 01 05 01 05 00 00 00")
VALUE(CDCIEssenceDescriptor, verticalSubsampling, UInt32, "02 04 01 05 01 10 00 00 00")
VALUE(CDCIEssenceDescriptor, colorSiting, UInt8, "01 04 01 05 01 06 00 00 00")
VALUE(CDCIEssenceDescriptor, reversedByteOrder, Boolean, "05 03 01 02 01 0A 00 00 00")
VALUE(CDCIEssenceDescriptor, paddingBits, Int16, "02 04 18 01 04 00 00 00 00")
VALUE(CDCIEssenceDescriptor, alphaSampleDepth, UInt32, "02 04 01 05 03 07 00 00 00")
VALUE(CDCIEssenceDescriptor, blackRefLevel, UInt32, "01 04 01 05 03 03 00 00 00")
VALUE(CDCIEssenceDescriptor, whiteRefLevel, UInt32, "01 04 01 05 03 04 00 00 00")
VALUE(CDCIEssenceDescriptor, colorRange, UInt32, "02 04 01 05 03 05 00 00 00")

VALUE(MPEG2VideoDescriptor, singleSequence, Boolean, "05 04 01 06 02 01 02 00 00")
VALUE(MPEG2VideoDescriptor, constantBFrames, Boolean, "05 04 01 06 02 01 03 00 00")
VALUE(MPEG2VideoDescriptor, codedContentType, UInt8, "05 04 01 06 02 01 04 00 00")
VALUE(MPEG2VideoDescriptor, lowDelay, Boolean, "05 04 01 06 02 01 05 00 00")
VALUE(MPEG2VideoDescriptor, closedGOP, Boolean, "05 04 01 06 02 01 06 00 00")
VALUE(MPEG2VideoDescriptor, identicalGOP, Boolean, "05 04 01 06 02 01 07 00 00")
VALUE(MPEG2VideoDescriptor, maxGOP, UInt16, "05 04 01 06 02 01 08 00 00")
VALUE(MPEG2VideoDescriptor, bPictureCount, UInt16, "05 04 01 06 02 01 09 00 00")
VALUE(MPEG2VideoDescriptor, bitRate, UInt32, "05 04 01 06 02 01 0B 00 00")
VALUE(MPEG2VideoDescriptor, profileAndLevel, UInt8, "05 04 01 06 02 01 0A 00 00")

VALUE(RGBAEssenceDescriptor, componentMaxRef, UInt32, "05 04 01 05 03 0B 00 00 00")
VALUE(RGBAEssenceDescriptor, componentMinRef, UInt32, "05 04 01 05 03 0C 00 00 00")
VALUE(RGBAEssenceDescriptor, alphaMaxRef, UInt32, "05 04 01 05 03 0D 00 00 00")
VALUE(RGBAEssenceDescriptor, alphaMinRef, UInt32, "05 04 01 05 03 0E 00 00 00")
VALUE(RGBAEssenceDescriptor, scanningDirection, Orientation, "05 04 01 04 04 01 00 00 00")
VALUE(RGBAEssenceDescriptor, pixelLayout, RGBALayout, "02 04 01 05 03 06 00 00 00")
VALUE(RGBAEssenceDescriptor, palette, DataValue, "02 04 01 05 03 08 00 00 00")
VALUE(RGBAEssenceDescriptor, paletteLayout, RGBALayout, "02 04 01 05 03 09 00 00 00")

VALUE(GenericSoundEssenceDescriptor, audioSamplingRate, Rational, "05 04 02 03 01 01 01 00 00")
VALUE(GenericSoundEssenceDescriptor, lockedUnlocked, Boolean, "04 04 02 03 01 04 00 00 00")
VALUE(GenericSoundEssenceDescriptor, audioRefLevel, Int8, "01 04 02 01 01 03 00 00 00")
VALUE(GenericSoundEssenceDescriptor, electroSpatialFormulation, UInt8, "01 04 02 01 01 01 00 00 00")
VALUE(GenericSoundEssenceDescriptor, channelCount, UInt32, "05 04 02 01 01 04 00 00 00")
VALUE(GenericSoundEssenceDescriptor, quantizationBits, UInt32, "04 04 02 03 03 04 00 00 00")
VALUE(GenericSoundEssenceDescriptor, dialNorm, Int8, "05 04 02 07 01 00 00 00 00")
VALUE(GenericSoundEssenceDescriptor, soundEssenceCompression, UniversalLabel, "02 04 02 04 02 00 00 00 00")

VALUE(MPEGAudioDescriptor, mpegAudioBitRate, UInt32, "0A 04 02 04 03 01 02 00 00")

VALUE(WAVEAudioEssenceDescriptor, blockAlign, UInt16, "05 04 02 03 02 01 00 00 00")
VALUE(WAVEAudioEssenceDescriptor, sequenceOffset, UInt8, "05 04 02 03 02 02 00 00 00")
VALUE(WAVEAudioEssenceDescriptor, avgBps, UInt32, "05 04 02 03 03 05 00 00 00")
VALUE(WAVEAudioEssenceDescriptor, channelAssignment, UniversalLabel, "07 04 02 01 01 05 00 00 00")
VALUE(WAVEAudioEssenceDescriptor, peakEnvelopeVersion, UInt32, "08 04 02 03 01 06 00 00 00")
VALUE(WAVEAudioEssenceDescriptor, peakEnvelopeFormat, UInt32, "08 04 02 03 01 07 00 00 00")
VALUE(WAVEAudioEssenceDescriptor, pointsPerPeakValue, UInt32, "08 04 02 03 01 08 00 00 00")
VALUE(WAVEAudioEssenceDescriptor, peakEnvelopeBlockSize, UInt32, "08 04 02 03 01 09 00 00 00")
VALUE(WAVEAudioEssenceDescriptor, peakChannels, UInt32, "08 04 02 03 01 0A 00 00 00")
VALUE(WAVEAudioEssenceDescriptor, peakFrames, UInt32, "08 04 02 03 01 0B 00 00 00")
VALUE(WAVEAudioEssenceDescriptor, peakOfPeaksPosition, Position, "08 04 02 03 01 0C 00 00 00")
VALUE(WAVEAudioEssenceDescriptor, peakEnvelopeTimestamp, Timestamp, "08 04 02 03 01 0D 00 00 00")
VALUE(WAVEAudioEssenceDescriptor, peakEnvelopeData, DataStream, "08 04 02 03 01 0E 00 00 00")

VALUE(AES3AudioEssenceDescriptor, emphasis, UInt8, "05 04 02 05 01 06 00 00 00")
VALUE(AES3AudioEssenceDescriptor, blockStartOffset, UInt16, "05 04 02 03 02 03 00 00 00")
VALUE(AES3AudioEssenceDescriptor, auxBitsMode, UInt8, "05 04 02 05 01 01 00 00 00")
ARRAY(AES3AudioEssenceDescriptor, channelStatusMode, ChannelStatusMode, channelStatusMode, UInt8,
      "05 04 02 05 01 02 00 00 00")
ARRAY(AES3AudioEssenceDescriptor, fixedChannelStatusData, FixedChannelStatusData, fixedChannelStatusData, DataStream,
      "05 04 02 05 01 03 00 00 00")
ARRAY(AES3AudioEssenceDescriptor, userDataMode, UserDataMode, userDataMode, UInt8, "05 04 02 05 01 04 00 00 00")
ARRAY(AES3AudioEssenceDescriptor, fixedUserData, FixedUserData, fixedUserData, DataStream, "05 04 02 05 01 05 00 00 00")
VALUE(AES3AudioEssenceDescriptor, linkedTimecodeTrackID, UInt32, "11 04 02 05 01 07 00 00 00")
VALUE(AES3AudioEssenceDescriptor, smpte337mDataStreamNumber, UInt8, "11 04 02 05 01 08 00 00 00")

VALUE(GenericDataEssenceDescriptor, dataEssenceCoding, UniversalLabel, "03 04 03 03 02 00 00 00 00")

REFERENCE_ARRAY(MultipleDescriptor, subDescriptor, SubDescriptor, subDescriptors, FileDescriptor,
                "04 06 01 01 04 06 0B 00 00")

VALUE(SMPTE331MTimeDateItemDescriptor, dateTimeRate, Rational, "05 04 04 01 02 01 00 00 00")
VALUE(SMPTE331MTimeDateItemDescriptor, dateTimeDropFrame, Boolean, "05 04 04 01 02 02 00 00 00")
VALUE(SMPTE331MTimeDateItemDescriptor, dateTimeEmbeded, Boolean, "05 04 04 01 02 03 00 00 00")
VALUE(SMPTE331MTimeDateItemDescriptor, dateTimeKind, UniversalLabel, "05 04 04 01 02 04 00 00 00")

VALUE(WAVEAudioPhysicalDescriptor, codingHistory, UTF16String, "05 04 02 05 02 01 01 00 00")
VALUE(WAVEAudioPhysicalDescriptor, fileSecurityReport, UInt32, "05 04 02 03 02 05 00 00 00")
VALUE(WAVEAudioPhysicalDescriptor, fileSecurityWave, UInt32, "05 04 02 03 02 06 00 00 00")
VALUE(WAVEAudioPhysicalDescriptor, basicData, UTF16String, "05 04 02 05 02 02 01 00 00")
VALUE(WAVEAudioPhysicalDescriptor, startModulation, UTF16String, "05 04 02 05 02 03 01 00 00")
VALUE(WAVEAudioPhysicalDescriptor, qualityEvent, UTF16String, "05 04 02 05 02 04 01 00 00")
VALUE(WAVEAudioPhysicalDescriptor, endModulation, UTF16String, "05 04 02 05 02 05 01 00 00")
VALUE(WAVEAudioPhysicalDescriptor, qualityParameter, UTF16String, "05 04 02 05 02 06 01 00 00")
VALUE(WAVEAudioPhysicalDescriptor, operatorComment, UTF16String, "05 04 02 05 02 07 01 00 00")
VALUE(WAVEAudioPhysicalDescriptor, cueSheet, UTF16String, "05 04 02 05 02 08 01 00 00")
REFERENCE_ARRAY(WAVEAudioPhysicalDescriptor, unknownBWFChunk, UnknownBWFChunk, unknownBWFChunks, UnknownChunkSet,
                "08 06 01 01 04 06 0F 00 00")

VALUE(JPEG2000PictureSubDescriptor, rsiz, UInt16, "0A 04 01 06 03 01 00 00 00")
VALUE(JPEG2000PictureSubDescriptor, xsiz, UInt32, "0A 04 01 06 03 02 00 00 00")
VALUE(JPEG2000PictureSubDescriptor, ysiz, UInt32, "0A 04 01 06 03 03 00 00 00")
VALUE(JPEG2000PictureSubDescriptor, xOsiz, UInt32, "0A 04 01 06 03 04 00 00 00")
VALUE(JPEG2000PictureSubDescriptor, yOsiz, UInt32, "0A 04 01 06 03 05 00 00 00")
VALUE(JPEG2000PictureSubDescriptor, xTsiz, UInt32, "0A 04 01 06 03 06 00 00 00")
VALUE(JPEG2000PictureSubDescriptor, yTsiz, UInt32, "0A 04 01 06 03 07 00 00 00")
VALUE(JPEG2000PictureSubDescriptor, xTOsiz, UInt32, "0A 04 01 06 03 08 00 00 00")
VALUE(JPEG2000PictureSubDescriptor, yTOsiz, UInt32, "0A 04 01 06 03 09 00 00 00")
VALUE(JPEG2000PictureSubDescriptor, csiz, UInt16, "0A 04 01 06 03 0A 00 00 00")
VALUE(JPEG2000PictureSubDescriptor, codingStyleDefault, J2KCodingStyleDefault, "0A 04 01 06 03 0C 00 00 00")
VALUE(JPEG2000PictureSubDescriptor, quantisationDefault, J2KQuantisationDefault, "0A 04 01 06 03 0D 00 00 00")
ARRAY(JPEG2000PictureSubDescriptor, j2KPictureComponent, J2KPictureComponent, j2KPictureComponents, J2KPictureComponent,
      "0A 04 01 06 03 0B 00 00 00")

VALUE(NetworkLocator, urlString, UTF16String, "01 01 02 01 01 01 00 00 00")

VALUE(TextLocator, locatorName, UTF16String, "02 01 04 01 02 01 00 00 00")

VALUE(UnknownChunkSet, chunkID, UInt32, "08 04 06 08 02 00 00 00 00")
VALUE(UnknownChunkSet, chunkLength, UInt32, "08 04 06 09 03 00 00 00 00")
VALUE(UnknownChunkSet, chunckData, DataStream, "08 04 07 04 00 00 00 00 00")
