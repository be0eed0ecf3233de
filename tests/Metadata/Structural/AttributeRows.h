// Attributes of the classes of structural metadata: all references and
// collections, values of each type, and those whose accessor has another name
// than the label. A row has class, accessor, type or class of the target,
// version and item bytes of the label.
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
VALUE(Identification, productVersion, ProductVersion, "02 05 20 07 01 04 00 00 00")
REFERENCE_BATCH(ContentStorage, package, Package, packages, GenericPackage, "02 06 01 01 04 05 01 00 00")
REFERENCE_BATCH(ContentStorage, essenceContainerData, EssenceContainerData, essenceContainerData, EssenceContainerData,
                "02 06 01 01 04 05 02 00 00")
VALUE(EssenceContainerData, linkedPackageUID, UMID32, "02 06 01 01 06 01 00 00 00")
REFERENCE_ARRAY(GenericPackage, track, Track, tracks, Track, "02 06 01 01 04 06 05 00 00")
REFERENCE(SourcePackage, descriptor, GenericDescriptor, "02 06 01 01 04 02 03 00 00")
REFERENCE(Track, sequence, Sequence, "02 06 01 01 04 02 04 00 00")
VALUE(TimelineTrack, editRate, Rational, "02 05 30 04 05 00 00 00 00")
VALUE(TimelineTrack, origin, Position, "02 07 02 01 03 01 03 00 00")
REFERENCE_ARRAY(Sequence, structuralComponent, StructuralComponent, structuralComponents, StructuralComponent,
                "02 06 01 01 04 06 09 00 00")
VALUE(Sequence, dataDefinition, UniversalLabel, "02 04 07 01 00 00 00 00 00")
VALUE(Sequence, duration, Length, "02 07 02 02 01 01 03 00 00")
VALUE(SourceClip, dataDefinition, UniversalLabel, "02 04 07 01 00 00 00 00 00")
VALUE(SourceClip, duration, Length, "02 07 02 02 01 01 03 00 00")
VALUE(SourceClip, sourcePackageUID, UMID32, "02 06 01 01 03 01 00 00 00")
SOURCE_TRACK(UInt32, "02 06 01 01 03 02 00 00 00")
BATCH(DMSourceClip, tracks, Tracks, tracks, UInt32, "05 01 07 01 06 00 00 00 00")
REFERENCE(DMSegment, dmFramework, MetadataSet, "05 06 01 01 04 02 0C 00 00")
SEGMENT_TRACKS(UInt32, "04 01 07 01 05 00 00 00 00")
VALUE(DMSegment, dataDefinition, UniversalLabel, "02 04 07 01 00 00 00 00 00")
VALUE(DMSegment, duration, Length, "02 07 02 02 01 01 03 00 00")
VALUE(TimecodeComponent, dataDefinition, UniversalLabel, "02 04 07 01 00 00 00 00 00")
VALUE(TimecodeComponent, duration, Length, "02 07 02 02 01 01 03 00 00")
VALUE(TimecodeComponent, roundedTimecodeBase, UInt16, "02 04 04 01 01 02 06 00 00")
VALUE(TimecodeComponent, dropFrame, Boolean, "01 04 04 01 01 05 00 00 00")
REFERENCE_ARRAY(GenericDescriptor, locator, Locator, locators, Locator, "02 06 01 01 04 06 03 00 00")
REFERENCE_ARRAY(GenericDescriptor, linkedSubDescriptor, LinkedSubDescriptor, linkedSubDescriptors, SubDescriptor,
                "09 06 01 01 04 06 10 00 00")
VALUE(FileDescriptor, linkedTrack, UInt32, "05 06 01 01 03 05 00 00 00")
VALUE(GenericPictureEssenceDescriptor, signalStandard, SignalStandard, "05 04 05 01 13 00 00 00 00")
VALUE(GenericPictureEssenceDescriptor, frameLayout, UInt8, "01 04 01 03 01 04 00 00 00")
VALUE(GenericPictureEssenceDescriptor, storedF2Offset, Int32, "05 04 01 03 02 08 00 00 00")
ARRAY(GenericPictureEssenceDescriptor, videoLineMap, VideoLineMap, videoLineMap, Int32, "02 04 01 03 02 05 00 00 00")
VALUE(CDCIEssenceDescriptor, paddingBits, Int16, "02 04 18 01 04 00 00 00 00")
VALUE(RGBAEssenceDescriptor, scanningDirection, Orientation, "05 04 01 04 04 01 00 00 00")
VALUE(RGBAEssenceDescriptor, pixelLayout, RGBALayout, "02 04 01 05 03 06 00 00 00")
VALUE(RGBAEssenceDescriptor, palette, DataValue, "02 04 01 05 03 08 00 00 00")
VALUE(GenericSoundEssenceDescriptor, audioRefLevel, Int8, "01 04 02 01 01 03 00 00 00")
VALUE(WAVEAudioEssenceDescriptor, peakEnvelopeData, DataStream, "08 04 02 03 01 0E 00 00 00")
ARRAY(AES3AudioEssenceDescriptor, channelStatusMode, ChannelStatusMode, channelStatusMode, UInt8,
      "05 04 02 05 01 02 00 00 00")
ARRAY(AES3AudioEssenceDescriptor, fixedChannelStatusData, FixedChannelStatusData, fixedChannelStatusData, DataStream,
      "05 04 02 05 01 03 00 00 00")
ARRAY(AES3AudioEssenceDescriptor, userDataMode, UserDataMode, userDataMode, UInt8, "05 04 02 05 01 04 00 00 00")
ARRAY(AES3AudioEssenceDescriptor, fixedUserData, FixedUserData, fixedUserData, DataStream, "05 04 02 05 01 05 00 00 00")
REFERENCE_ARRAY(MultipleDescriptor, subDescriptor, SubDescriptor, subDescriptors, FileDescriptor,
                "04 06 01 01 04 06 0B 00 00")
REFERENCE_ARRAY(WAVEAudioPhysicalDescriptor, unknownBWFChunk, UnknownBWFChunk, unknownBWFChunks, UnknownChunkSet,
                "08 06 01 01 04 06 0F 00 00")
VALUE(JPEG2000PictureSubDescriptor, codingStyleDefault, J2KCodingStyleDefault, "0A 04 01 06 03 0C 00 00 00")
VALUE(JPEG2000PictureSubDescriptor, quantisationDefault, J2KQuantisationDefault, "0A 04 01 06 03 0D 00 00 00")
ARRAY(JPEG2000PictureSubDescriptor, j2KPictureComponent, J2KPictureComponent, j2KPictureComponents, J2KPictureComponent,
      "0A 04 01 06 03 0B 00 00 00")
