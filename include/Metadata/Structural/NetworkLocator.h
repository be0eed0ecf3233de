#pragma once

#include "Metadata/Structural/Locator.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Where essence can be found, by a URL (SMPTE 377M).
class VANTRY_EXPORT NetworkLocator : public Locator
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    NetworkLocator(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Where the essence is: an absolute or relative URL (RFC 3986).
    Types::UTF16String const * urlString() const;
    void urlString(Types::UTF16String const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
