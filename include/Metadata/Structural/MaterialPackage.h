#pragma once

#include "Metadata/Structural/GenericPackage.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// What plays out: each track leads to essence by way of source packages (SMPTE
/// 377M).
class VANTRY_EXPORT MaterialPackage : public GenericPackage
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    MaterialPackage(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
