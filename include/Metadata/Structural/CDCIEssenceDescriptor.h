#pragma once

#include "Metadata/Structural/GenericPictureEssenceDescriptor.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes pictures with a luminance and two colour difference components
/// (SMPTE 377M).
class VANTRY_EXPORT CDCIEssenceDescriptor : public GenericPictureEssenceDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    CDCIEssenceDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Bits of a sample of a colour component: 8, 10, 12 or 16.
    Types::UInt32 const * componentDepth() const;
    void componentDepth(Types::UInt32 const * value);

    /// Luminance samples to each colour difference sample in a line: 1 for
    /// 4:4:4, 2 for 4:2:2, 4 for 4:1:1.
    Types::UInt32 const * horizontalSubsampling() const;
    void horizontalSubsampling(Types::UInt32 const * value);

    /// Luminance lines to each line of colour differences: 1, or 2 for 4:2:0.
    Types::UInt32 const * verticalSubsampling() const;
    void verticalSubsampling(Types::UInt32 const * value);

    /// Where colour difference samples lie between those of luminance: 0 co-
    /// sited, 1 midpoint, 2 three-tap, 3 quincunx, 4 Rec. 601.
    Types::UInt8 const * colorSiting() const;
    void colorSiting(Types::UInt8 const * value);

    /// Whether luminance precedes the colour differences of its pair, against
    /// the order of Rec. 601.
    Types::Boolean const * reversedByteOrder() const;
    void reversedByteOrder(Types::Boolean const * value);

    /// Unused bits of each sample, to the right of it.
    Types::Int16 const * paddingBits() const;
    void paddingBits(Types::Int16 const * value);

    /// Bits of a sample of the alpha component.
    Types::UInt32 const * alphaSampleDepth() const;
    void alphaSampleDepth(Types::UInt32 const * value);

    /// Luminance sample for black, 16 with 8 bits by Rec. 601.
    Types::UInt32 const * blackRefLevel() const;
    void blackRefLevel(Types::UInt32 const * value);

    /// Luminance sample for white, 235 with 8 bits by Rec. 601.
    Types::UInt32 const * whiteRefLevel() const;
    void whiteRefLevel(Types::UInt32 const * value);

    /// How many values the colour differences take, 225 with 8 bits by Rec.
    /// 601.
    Types::UInt32 const * colorRange() const;
    void colorRange(Types::UInt32 const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;

protected:
    /// For a class derived from this one, with a key of its own.
    CDCIEssenceDescriptor(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                          MetadataSetOwner * owner);
};

}}}
