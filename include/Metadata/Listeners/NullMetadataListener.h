#pragma once

#include "Metadata/PartitionMetadataListener.h"

namespace Vantry { namespace Metadata { namespace Listeners {

/// A listener that does nothing, for those that mean a few changes only.
class VANTRY_EXPORT NullMetadataListener : public PartitionMetadataListener
{
public:
    ~NullMetadataListener() override;

    void metadataSetKey(KLV::Key &) override {}
    void createdMetadataSet(MetadataSet *) override {}
    void removedMetadataSet(MetadataSet *) override {}
    void addedElement(MetadataSet &, MetaMetadata::MetaElement const *, Element &, Types::BaseType const &) override {}
    void updatedElement(MetadataSet &, MetaMetadata::MetaElement const *, Element &, Types::SimpleDataType const &,
                        Types::SimpleDataType const &) override
    {
    }
    void updatedElement(MetadataSet &, MetaMetadata::MetaElement const *, Element &, Types::Collection const &,
                        Types::Collection const &) override
    {
    }
    void updatedElementCollection(MetadataSet &, MetaMetadata::MetaElement const *, Element &,
                                  Types::Collection const &, unsigned int, Types::SimpleDataType const *) override
    {
    }
    void removedElement(MetadataSet &, MetaMetadata::MetaElement const *, Element &, Types::BaseType const &) override
    {
    }
};

}}}
