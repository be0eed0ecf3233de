#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Metadata/Structural/GenericPackage.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Essence as it lies in a file, or where it came from, with a descriptor of it
/// (SMPTE 377M).
class VANTRY_EXPORT SourcePackage : public GenericPackage
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    SourcePackage(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Describes the essence of the package, or where it came from.
    GenericDescriptor * descriptor() const;
    void descriptor(GenericDescriptor * target);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
