#pragma once

#include "Metadata/Structural/GenericDataEssenceDescriptor.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes lines of the vertical blanking interval (SMPTE 436M).
class VANTRY_EXPORT VBIDataDescriptor : public GenericDataEssenceDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    VBIDataDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
