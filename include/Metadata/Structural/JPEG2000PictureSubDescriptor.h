#pragma once

#include "Metadata/Structural/SubDescriptor.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// The main header of a JPEG 2000 codestream, field by field (ISO 15444-1,
/// SMPTE 422M).
class VANTRY_EXPORT JPEG2000PictureSubDescriptor : public SubDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    JPEG2000PictureSubDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Capabilities that a decoder needs.
    Types::UInt16 const * rsiz() const;
    void rsiz(Types::UInt16 const * value);

    /// Width of the reference grid.
    Types::UInt32 const * xsiz() const;
    void xsiz(Types::UInt32 const * value);

    /// Height of the reference grid.
    Types::UInt32 const * ysiz() const;
    void ysiz(Types::UInt32 const * value);

    /// Left edge of the image area on the reference grid.
    Types::UInt32 const * xOsiz() const;
    void xOsiz(Types::UInt32 const * value);

    /// Top edge of the image area on the reference grid.
    Types::UInt32 const * yOsiz() const;
    void yOsiz(Types::UInt32 const * value);

    /// Width of a tile on the reference grid.
    Types::UInt32 const * xTsiz() const;
    void xTsiz(Types::UInt32 const * value);

    /// Height of a tile on the reference grid.
    Types::UInt32 const * yTsiz() const;
    void yTsiz(Types::UInt32 const * value);

    /// Left edge of the first tile on the reference grid.
    Types::UInt32 const * xTOsiz() const;
    void xTOsiz(Types::UInt32 const * value);

    /// Top edge of the first tile on the reference grid.
    Types::UInt32 const * yTOsiz() const;
    void yTOsiz(Types::UInt32 const * value);

    /// Number of components.
    Types::UInt16 const * csiz() const;
    void csiz(Types::UInt16 const * value);

    /// The main header's default of the coding style, without its marker and
    /// length.
    Types::J2KCodingStyleDefault const * codingStyleDefault() const;
    void codingStyleDefault(Types::J2KCodingStyleDefault const * value);

    /// The main header's default of the quantisation, without its marker and
    /// length.
    Types::J2KQuantisationDefault const * quantisationDefault() const;
    void quantisationDefault(Types::J2KQuantisationDefault const * value);

    /// Depth and subsampling of each component.
    Types::J2KPictureComponent const * j2KPictureComponent(unsigned int index) const;
    unsigned int j2KPictureComponentsCount() const;
    void addJ2KPictureComponent(unsigned int index, Types::J2KPictureComponent const & value);
    void removeJ2KPictureComponent(unsigned int index);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
