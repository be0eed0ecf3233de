#pragma once

#include "Metadata/Structural/FileDescriptor.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes data essence (SMPTE 377M).
class VANTRY_EXPORT GenericDataEssenceDescriptor : public FileDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    GenericDataEssenceDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Label of the data's coding.
    Types::UniversalLabel const * dataEssenceCoding() const;
    void dataEssenceCoding(Types::UniversalLabel const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;

protected:
    /// For a class derived from this one, with a key of its own.
    GenericDataEssenceDescriptor(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                                 MetadataSetOwner * owner);
};

}}}
