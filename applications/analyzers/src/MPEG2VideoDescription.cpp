#include "MPEG2VideoDescription.h"

#include "Analyzers/EssenceMetadata.h"
#include "Metadata/Structural/MPEG2VideoDescriptor.h"
#include "Raster.h"
#include "Types/Boolean.h"
#include "Types/Rational.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"
#include "Types/UniversalLabel.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace Analyzers {

namespace {

using Descriptor = Metadata::Structural::MPEG2VideoDescriptor;
using Picture = Metadata::Structural::CDCIEssenceDescriptor;

unsigned int const MACROBLOCK = 16;

// Values of SMPTE 377M, annex E.
UInt8 const FULL_FRAME = 0;
UInt8 const SEPARATE_FIELDS = 1;
UInt8 const REC_601_SITING = 4;
UInt8 const VERTICAL_MIDPOINT_SITING = 6;
UInt8 const PROGRESSIVE_CONTENT = 1;
UInt8 const INTERLACED_CONTENT = 2;

unsigned int const CHROMA_420 = 1;
unsigned int const CHROMA_444 = 3;

unsigned int roundedUp(unsigned int size, unsigned int unit)
{
    return (size + unit - 1) / unit * unit;
}

void describeStored(Picture & picture, SequenceHeader const & sequence)
{
    // Where fields are separate, heights are those of a field.
    unsigned int const fields = sequence.isProgressive ? 1 : 2;
    put(picture, &Picture::frameLayout, sequence.isProgressive ? FULL_FRAME : SEPARATE_FIELDS);
    describeSize(picture, sequence.width, sequence.height / fields, roundedUp(sequence.width, MACROBLOCK),
                 roundedUp(sequence.height, fields * MACROBLOCK) / fields);
    describeLines(picture, sequence.height, sequence.isProgressive);
}

void describeAspectRatio(Picture & picture, SequenceHeader const & sequence)
{
    switch (sequence.aspectRatioCode)
    {
    case 2:
        return put(picture, &Picture::aspectRatio, 4, 3);
    case 3:
        return put(picture, &Picture::aspectRatio, 16, 9);
    case 4:
        return put(picture, &Picture::aspectRatio, 221, 100);
    default: // square samples
        Templates::Rational<int> const ratio(static_cast<int>(sequence.width), static_cast<int>(sequence.height));
        return put(picture, &Picture::aspectRatio, ratio.numerator(), ratio.denominator());
    }
}

void describeSamples(Picture & picture, SequenceHeader const & sequence)
{
    bool const is420 = sequence.chromaFormat == CHROMA_420;
    put(picture, &Picture::horizontalSubsampling, sequence.chromaFormat == CHROMA_444 ? 1u : 2u);
    put(picture, &Picture::verticalSubsampling, is420 ? 2u : 1u);
    put(picture, &Picture::colorSiting, is420 ? VERTICAL_MIDPOINT_SITING : REC_601_SITING);
    describeEightBits(picture);
}

// Bytes 13 and 14 of the label of the coding (SMPTE RP 224): profile and
// level, and whether there are predicted pictures.
struct Coding
{
    unsigned int profileAndLevel;
    unsigned char level;
    unsigned char intra;
    unsigned char predicted;
};

Coding const CODINGS[] = {
    {0x48, 1, 0x10, 0x11}, // main profile at main level
    {0x85, 2, 0x02, 0x03}, // 4:2:2 profile at main level
    {0x44, 3, 0x02, 0x03}, // main profile at high level
    {0x82, 4, 0x02, 0x03}, // 4:2:2 profile at high level
    {0x46, 5, 0x02, 0x03}, // main profile at high-1440 level
};

void describeCoding(Descriptor & video, SequenceHeader const & sequence, bool hasPredicted)
{
    for (Coding const & coding : CODINGS)
        if (coding.profileAndLevel == sequence.profileAndLevel)
        {
            unsigned char const label[16] = {
                0x06, 0x0E, 0x2B, 0x34,         0x04,
                0x01, 0x01, 0x03, 0x04,         0x01,
                0x02, 0x02, 0x01, coding.level, hasPredicted ? coding.predicted : coding.intra,
                0};
            put(video, &Descriptor::pictureEssenceCoding, label);
        }
}

UInt16 saturated(UInt64 number)
{
    return static_cast<UInt16>(std::min<UInt64>(number, std::numeric_limits<UInt16>::max()));
}

}

void describePicture(Picture & picture, SequenceHeader const & sequence, PictureHeader const & first)
{
    describeStored(picture, sequence);
    describeAspectRatio(picture, sequence);
    describeSamples(picture, sequence);

    bool const topFirst = first.structure == PictureStructure::TOP_FIELD ||
                          (first.structure == PictureStructure::FRAME && first.isTopFieldFirst);
    if (!sequence.isProgressive)
        put(picture, &Picture::fieldDominance, UInt8(topFirst ? 1 : 2));
}

void describeVideo(Descriptor & video, SequenceHeader const & sequence, PictureHeader const & first, bool hasPredicted)
{
    describePicture(video, sequence, first);
    describeCoding(video, sequence, hasPredicted);
    put(video, &Descriptor::singleSequence, true);
    put(video, &Descriptor::codedContentType, sequence.isProgressive ? PROGRESSIVE_CONTENT : INTERLACED_CONTENT);
    put(video, &Descriptor::lowDelay, sequence.isLowDelay);
    put(video, &Descriptor::bitRate, static_cast<UInt32>(std::min<UInt64>(sequence.bitRate * 400, 0xFFFFFFFF)));
    put(video, &Descriptor::profileAndLevel, static_cast<UInt8>(sequence.profileAndLevel));
}

void describeGroups(Descriptor & video, PictureGroups const & groups)
{
    put(video, &Descriptor::constantBFrames, groups.areRunsEqual());
    put(video, &Descriptor::closedGOP, groups.areClosed());
    put(video, &Descriptor::identicalGOP, groups.areIdentical());
    put(video, &Descriptor::maxGOP, saturated(groups.longest()));
    put(video, &Descriptor::bPictureCount, saturated(groups.longestRun()));
}

}}
