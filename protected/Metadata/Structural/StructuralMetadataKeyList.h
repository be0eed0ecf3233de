#pragma once

#define VANTRY_STRUCTURAL_METADATA_KEYS(ROW)                                                \
    ROW(sequence, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 0F 00")                        \
    ROW(sourceClip, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 11 00")                      \
    ROW(timecodeComponent, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 14 00")               \
    ROW(contentStorage, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 18 00")                  \
    ROW(essenceContainerData, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 23 00")            \
    ROW(fileDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 25 00")                  \
    ROW(genericPictureEssenceDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 27 00") \
    ROW(cdciEssenceDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 28 00")           \
    ROW(rgbaEssenceDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 29 00")           \
    ROW(preface, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 2F 00")                         \
    ROW(identification, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 30 00")                  \
    ROW(networkLocator, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 32 00")                  \
    ROW(textLocator, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 33 00")                     \
    ROW(materialPackage, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 36 00")                 \
    ROW(sourcePackage, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 37 00")                   \
    ROW(eventTrack, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 39 00")                      \
    ROW(staticTrack, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 3A 00")                     \
    ROW(timelineTrack, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 3B 00")                   \
    ROW(dmSegment, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 41 00")                       \
    ROW(genericSoundEssenceDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 42 00")   \
    ROW(genericDataEssenceDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 43 00")    \
    ROW(multipleDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 44 00")              \
    ROW(dmSourceClip, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 45 00")                    \
    ROW(smpte331MTimeDateItemDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 46 00") \
    ROW(aes3AudioEssenceDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 47 00")      \
    ROW(waveAudioEssenceDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 48 00")      \
    ROW(unknownChunkSet, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 4F 00")                 \
    ROW(waveAudioPhysicalDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 50 00")     \
    ROW(mpeg2VideoDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 51 00")            \
    ROW(jpeg2000PictureSubDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 5A 00")    \
    ROW(vbiDataDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 5B 00")               \
    ROW(ancPacketsDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 5C 00")            \
    ROW(mpegAudioDescriptor, "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 5E 00")             \
    ROW(cryptographicFramework, "06 0E 2B 34 02 53 01 01 0D 01 04 01 02 01 00 00")          \
    ROW(cryptographicContext, "06 0E 2B 34 02 53 01 01 0D 01 04 01 02 02 00 00")
