#include "MPEG2VideoDescription.h"

#include "Analyzers/EssenceMetadata.h"
#include "Metadata/Structural/MPEG2VideoDescriptor.h"
#include "Types/Boolean.h"
#include "Types/Int32.h"
#include "Types/Rational.h"
#include "Types/SignalStandard.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"
#include "Types/UniversalLabel.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace Analyzers {

namespace {

using Descriptor = Metadata::Structural::MPEG2VideoDescriptor;

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

// A raster by the lines of its pictures: the standard of its signal, and the
// lines of that on which the fields begin, or the frame.
struct Raster
{
    unsigned int height;
    bool isProgressive;
    UInt8 signalStandard;
    Int32 lines[2];
};

UInt8 const NO_STANDARD = 0;
UInt8 const ITU_601 = 1;
UInt8 const SMPTE_274M = 4;
UInt8 const SMPTE_296M = 5;
UInt8 const SMPTE_293M = 3;

Raster const RASTERS[] = {
    {480, false, ITU_601, {23, 286}},  {486, false, ITU_601, {21, 283}},     {512, false, ITU_601, {7, 270}},
    {576, false, ITU_601, {23, 336}},  {608, false, ITU_601, {7, 320}},      {480, true, SMPTE_293M, {46, 0}},
    {576, true, NO_STANDARD, {45, 0}}, {720, true, SMPTE_296M, {26, 0}},     {1080, false, SMPTE_274M, {21, 584}},
    {1080, true, SMPTE_274M, {42, 0}}, {1088, false, SMPTE_274M, {21, 584}}, {1088, true, SMPTE_274M, {42, 0}},
};

// Pictures of another height are lines of nothing but themselves.
Raster rasterOf(SequenceHeader const & sequence)
{
    for (Raster const & raster : RASTERS)
        if (raster.height == sequence.height && raster.isProgressive == sequence.isProgressive)
            return raster;
    auto const secondField = static_cast<Int32>(sequence.isProgressive ? 0 : 1 + (sequence.height + 1) / 2);
    return {sequence.height, sequence.isProgressive, NO_STANDARD, {1, secondField}};
}

unsigned int roundedUp(unsigned int size, unsigned int unit)
{
    return (size + unit - 1) / unit * unit;
}

void describeSize(Descriptor & video, SequenceHeader const & sequence)
{
    // Where fields are separate, heights are those of a field.
    unsigned int const fields = sequence.isProgressive ? 1 : 2;
    unsigned int const height = sequence.height / fields;
    put(video, &Descriptor::frameLayout, sequence.isProgressive ? FULL_FRAME : SEPARATE_FIELDS);
    put(video, &Descriptor::storedWidth, roundedUp(sequence.width, MACROBLOCK));
    put(video, &Descriptor::storedHeight, roundedUp(sequence.height, fields * MACROBLOCK) / fields);
    put(video, &Descriptor::sampledWidth, sequence.width);
    put(video, &Descriptor::sampledHeight, height);
    put(video, &Descriptor::sampledXOffset, 0);
    put(video, &Descriptor::sampledYOffset, 0);
    put(video, &Descriptor::displayWidth, sequence.width);
    put(video, &Descriptor::displayHeight, height);
    put(video, &Descriptor::displayXOffset, 0);
    put(video, &Descriptor::displayYOffset, 0);

    Raster const raster = rasterOf(sequence);
    if (raster.signalStandard != NO_STANDARD)
        put(video, &Descriptor::signalStandard, raster.signalStandard);
    for (unsigned int i = 0; i < 2; ++i)
        video.addVideoLineMap(i, raster.lines[i]);
}

void describeAspectRatio(Descriptor & video, SequenceHeader const & sequence)
{
    switch (sequence.aspectRatioCode)
    {
    case 2:
        return put(video, &Descriptor::aspectRatio, 4, 3);
    case 3:
        return put(video, &Descriptor::aspectRatio, 16, 9);
    case 4:
        return put(video, &Descriptor::aspectRatio, 221, 100);
    default: // square samples
        Templates::Rational<int> const ratio(static_cast<int>(sequence.width), static_cast<int>(sequence.height));
        return put(video, &Descriptor::aspectRatio, ratio.numerator(), ratio.denominator());
    }
}

void describeSamples(Descriptor & video, SequenceHeader const & sequence)
{
    bool const is420 = sequence.chromaFormat == CHROMA_420;
    put(video, &Descriptor::componentDepth, 8u);
    put(video, &Descriptor::horizontalSubsampling, sequence.chromaFormat == CHROMA_444 ? 1u : 2u);
    put(video, &Descriptor::verticalSubsampling, is420 ? 2u : 1u);
    put(video, &Descriptor::colorSiting, is420 ? VERTICAL_MIDPOINT_SITING : REC_601_SITING);
    put(video, &Descriptor::blackRefLevel, 16u);
    put(video, &Descriptor::whiteRefLevel, 235u);
    put(video, &Descriptor::colorRange, 225u);
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

void describeVideo(Descriptor & video, SequenceHeader const & sequence, PictureHeader const & first, bool hasPredicted)
{
    describeSize(video, sequence);
    describeAspectRatio(video, sequence);
    describeSamples(video, sequence);
    describeCoding(video, sequence, hasPredicted);

    bool const topFirst = first.structure == PictureStructure::TOP_FIELD ||
                          (first.structure == PictureStructure::FRAME && first.isTopFieldFirst);
    if (!sequence.isProgressive)
        put(video, &Descriptor::fieldDominance, UInt8(topFirst ? 1 : 2));
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
