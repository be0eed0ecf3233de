#include "Raster.h"

#include "Analyzers/EssenceMetadata.h"
#include "Types/Int32.h"
#include "Types/SignalStandard.h"
#include "Types/UInt32.h"

namespace Vantry { namespace Analyzers {

namespace {

using Picture = Metadata::Structural::GenericPictureEssenceDescriptor;

struct Raster
{
    unsigned int height;
    bool isProgressive;
    unsigned char signalStandard;
    Int32 lines[2];
};

// Values of SMPTE 377M, annex E.
unsigned char const NO_STANDARD = 0;
unsigned char const ITU_601 = 1;
unsigned char const SMPTE_274M = 4;
unsigned char const SMPTE_296M = 5;

Raster const RASTERS[] = {
    {480, false, ITU_601, {23, 286}},  {486, false, ITU_601, {21, 283}},     {512, false, ITU_601, {7, 270}},
    {576, false, ITU_601, {23, 336}},  {608, false, ITU_601, {7, 320}},      {480, true, NO_STANDARD, {46, 0}},
    {576, true, NO_STANDARD, {45, 0}}, {720, true, SMPTE_296M, {26, 0}},     {1080, false, SMPTE_274M, {21, 584}},
    {1080, true, SMPTE_274M, {42, 0}}, {1088, false, SMPTE_274M, {21, 584}}, {1088, true, SMPTE_274M, {42, 0}},
};

Raster rasterOf(unsigned int height, bool isProgressive)
{
    for (Raster const & raster : RASTERS)
        if (raster.height == height && raster.isProgressive == isProgressive)
            return raster;
    auto const secondField = static_cast<Int32>(isProgressive ? 0 : 1 + (height + 1) / 2);
    return {height, isProgressive, NO_STANDARD, {1, secondField}};
}

}

void describeLines(Picture & picture, unsigned int height, bool isProgressive)
{
    Raster const raster = rasterOf(height, isProgressive);
    if (raster.signalStandard != NO_STANDARD)
        put(picture, &Picture::signalStandard, raster.signalStandard);
    for (unsigned int i = 0; i < 2; ++i)
        picture.addVideoLineMap(i, raster.lines[i]);
}

void describeSize(Picture & picture, unsigned int width, unsigned int height, unsigned int storedWidth,
                  unsigned int storedHeight)
{
    put(picture, &Picture::storedWidth, storedWidth);
    put(picture, &Picture::storedHeight, storedHeight);
    put(picture, &Picture::sampledWidth, width);
    put(picture, &Picture::sampledHeight, height);
    put(picture, &Picture::sampledXOffset, 0);
    put(picture, &Picture::sampledYOffset, 0);
    put(picture, &Picture::displayWidth, width);
    put(picture, &Picture::displayHeight, height);
    put(picture, &Picture::displayXOffset, 0);
    put(picture, &Picture::displayYOffset, 0);
}

void describeEightBits(Metadata::Structural::CDCIEssenceDescriptor & picture)
{
    using Metadata::Structural::CDCIEssenceDescriptor;
    put(picture, &CDCIEssenceDescriptor::componentDepth, 8u);
    put(picture, &CDCIEssenceDescriptor::blackRefLevel, 16u);
    put(picture, &CDCIEssenceDescriptor::whiteRefLevel, 235u);
    put(picture, &CDCIEssenceDescriptor::colorRange, 225u);
}

}}
