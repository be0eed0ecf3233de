#include "JPEG2000Description.h"

#include "Analyzers/EssenceMetadata.h"
#include "Metadata/Structural/CDCIEssenceDescriptor.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/JPEG2000PictureSubDescriptor.h"
#include "Metadata/Structural/RGBAEssenceDescriptor.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Platform/BigEndian.h"
#include "Raster.h"
#include "Types/J2KCodingStyleDefault.h"
#include "Types/J2KPictureComponent.h"
#include "Types/J2KQuantisationDefault.h"
#include "Types/RGBALayout.h"
#include "Types/Rational.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Analyzers {

namespace {

using namespace Metadata::Structural;
using Essence::JPEG2000::CodestreamHeader;
using Essence::JPEG2000::ImageTileSize;

UInt8 const FULL_FRAME = 0;
UInt8 const COSITED = 0;

// Profiles of digital cinema (ISO/IEC 15444-1, table A.10).
unsigned short const FIRST_CINEMA = 3;
unsigned short const LAST_CINEMA = 6;

// Components of colour: their codes in a layout (SMPTE 377M, E.2.46).
unsigned char const RGB[] = {'R', 'G', 'B'};
unsigned char const XYZ[] = {0xD8, 0xD9, 0xDA};

bool isCinema(ImageTileSize const & size)
{
    return size.rsiz >= FIRST_CINEMA && size.rsiz <= LAST_CINEMA;
}

bool hasColours(CodestreamHeader const & header)
{
    bool const isTransformed = header.codingStyleDefault.sGcod[3] != 0;
    return header.imageTileSize.csiz >= 3 && (isTransformed || isCinema(header.imageTileSize));
}

unsigned int depthOf(ImageTileSize const & size)
{
    return (size.components.front().ssiz & 0x7Fu) + 1;
}

void describeColours(RGBAEssenceDescriptor & picture, ImageTileSize const & size)
{
    Types::RGBALayout layout;
    for (unsigned int i = 0; i < 3; ++i)
        layout.set(i, {(isCinema(size) ? XYZ : RGB)[i], static_cast<unsigned char>(depthOf(size))});
    picture.pixelLayout(&layout);
    put(picture, &RGBAEssenceDescriptor::componentMaxRef, static_cast<UInt32>((UInt64(1) << depthOf(size)) - 1));
    put(picture, &RGBAEssenceDescriptor::componentMinRef, 0u);
}

void describeDifferences(CDCIEssenceDescriptor & picture, ImageTileSize const & size)
{
    ImageTileSize::Component const & last = size.components[size.csiz >= 3 ? 1 : 0];
    put(picture, &CDCIEssenceDescriptor::componentDepth, depthOf(size));
    put(picture, &CDCIEssenceDescriptor::horizontalSubsampling, UInt32(last.xRsiz));
    put(picture, &CDCIEssenceDescriptor::verticalSubsampling, UInt32(last.yRsiz));
    put(picture, &CDCIEssenceDescriptor::colorSiting, COSITED);
}

void describePicture(GenericPictureEssenceDescriptor & picture, ImageTileSize const & size)
{
    using Picture = GenericPictureEssenceDescriptor;
    unsigned int const width = size.xsiz - size.xOsiz;
    unsigned int const height = size.ysiz - size.yOsiz;
    put(picture, &Picture::frameLayout, FULL_FRAME);
    describeSize(picture, width, height, width, height);
    describeLines(picture, height, true);

    Templates::Rational<int> const ratio(static_cast<int>(width), static_cast<int>(height));
    put(picture, &Picture::aspectRatio, ratio.numerator(), ratio.denominator());

    // The last byte is that of the profile, where there is one.
    unsigned char const variant = static_cast<unsigned char>(isCinema(size) ? size.rsiz : 0x7F);
    unsigned char const coding[16] = {0x06, 0x0E, 0x2B, 0x34, 0x04, 0x01, 0x01, 0x07,
                                      0x04, 0x01, 0x02, 0x02, 0x03, 0x01, 0x01, variant};
    put(picture, &Picture::pictureEssenceCoding, coding);
}

void describeCoding(JPEG2000PictureSubDescriptor & coding, CodestreamHeader const & header)
{
    using Coding = JPEG2000PictureSubDescriptor;
    ImageTileSize const & size = header.imageTileSize;
    put(coding, &Coding::rsiz, size.rsiz);
    put(coding, &Coding::xsiz, size.xsiz);
    put(coding, &Coding::ysiz, size.ysiz);
    put(coding, &Coding::xOsiz, size.xOsiz);
    put(coding, &Coding::yOsiz, size.yOsiz);
    put(coding, &Coding::xTsiz, size.xTsiz);
    put(coding, &Coding::yTsiz, size.yTsiz);
    put(coding, &Coding::xTOsiz, size.xTOsiz);
    put(coding, &Coding::yTOsiz, size.yTOsiz);
    put(coding, &Coding::csiz, size.csiz);
    for (unsigned int i = 0; i < size.csiz; ++i)
    {
        ImageTileSize::Component const & component = size.components[i];
        coding.addJ2KPictureComponent(i, {component.ssiz, component.xRsiz, component.yRsiz});
    }

    Essence::JPEG2000::CodingStyleDefault const & style = header.codingStyleDefault;
    put(coding, &Coding::codingStyleDefault, style.scod, Platform::readBigEndian<UInt32>(style.sGcod),
        style.sPcod.data(), style.sPcod.size());
    Essence::JPEG2000::QuantisationDefault const & quantisation = header.quantisationDefault;
    put(coding, &Coding::quantisationDefault, quantisation.sqcd, quantisation.sPgcd.data(), quantisation.sPgcd.size());
}

}

void describeCodestream(EssenceMetadata & metadata, CodestreamHeader const & header,
                        Types::UniversalLabel const & container, Templates::Rational<int> const & rate)
{
    namespace Keys = StructuralMetadataKeys;
    auto const & kind = hasColours(header) ? Keys::rgbaEssenceDescriptor() : Keys::cdciEssenceDescriptor();
    auto & picture =
        metadata.describe<GenericPictureEssenceDescriptor>(kind, DataDefinitionULs::picture(), container, rate);
    describePicture(picture, header.imageTileSize);
    if (auto * const colours = dynamic_cast<RGBAEssenceDescriptor *>(&picture))
        describeColours(*colours, header.imageTileSize);
    else
        describeDifferences(dynamic_cast<CDCIEssenceDescriptor &>(picture), header.imageTileSize);

    auto & coding = dynamic_cast<JPEG2000PictureSubDescriptor &>(
        *metadata.partitionMetadata().createMetadataSet(Keys::jpeg2000PictureSubDescriptor()));
    describeCoding(coding, header);
    picture.addLinkedSubDescriptor(0, &coding);
}

}}
