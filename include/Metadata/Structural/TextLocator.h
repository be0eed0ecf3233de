#pragma once

#include "Metadata/Structural/Locator.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Where essence can be found, in words for people (SMPTE 377M).
class VANTRY_EXPORT TextLocator : public Locator
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    TextLocator(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Where the essence is, in words for people.
    Types::UTF16String const * locatorName() const;
    void locatorName(Types::UTF16String const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
