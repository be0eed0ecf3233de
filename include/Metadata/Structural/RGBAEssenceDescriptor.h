#pragma once

#include "Metadata/Structural/GenericPictureEssenceDescriptor.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes pictures with red, green, blue and alpha components, or with a
/// palette (SMPTE 377M).
class VANTRY_EXPORT RGBAEssenceDescriptor : public GenericPictureEssenceDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    RGBAEssenceDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Sample value of a fully lit component: the white reference.
    Types::UInt32 const * componentMaxRef() const;
    void componentMaxRef(Types::UInt32 const * value);

    /// Sample value of an unlit component: the black reference.
    Types::UInt32 const * componentMinRef() const;
    void componentMinRef(Types::UInt32 const * value);

    /// Sample value of the alpha component at its greatest.
    Types::UInt32 const * alphaMaxRef() const;
    void alphaMaxRef(Types::UInt32 const * value);

    /// Sample value of the alpha component at its smallest.
    Types::UInt32 const * alphaMinRef() const;
    void alphaMinRef(Types::UInt32 const * value);

    /// Order in which samples and lines are stored: 0 from left to right and
    /// from top to bottom.
    Types::Orientation const * scanningDirection() const;
    void scanningDirection(Types::Orientation const * value);

    /// Components of a pixel in the order stored, each with its bits.
    Types::RGBALayout const * pixelLayout() const;
    void pixelLayout(Types::RGBALayout const * value);

    /// The colours that pixels are numbers of.
    Types::DataValue const * palette() const;
    void palette(Types::DataValue const * value);

    /// Components of a colour of the palette in the order stored, each with its
    /// bits.
    Types::RGBALayout const * paletteLayout() const;
    void paletteLayout(Types::RGBALayout const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
