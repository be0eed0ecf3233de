#include "Metadata/Listeners/BaseMetadataIndexListener.h"

#include "MetaMetadata/MetaElement.h"
#include "Metadata/Listeners/ValueIndex.h"
#include "Types/SimpleDataType.h"

namespace Vantry { namespace Metadata { namespace Listeners {

class BaseMetadataIndexListener::Impl : public ValueIndex
{
};

BaseMetadataIndexListener::BaseMetadataIndexListener() : impl_(new Impl) {}

BaseMetadataIndexListener::~BaseMetadataIndexListener()
{
    delete impl_;
}

Templates::vector<MetadataSet *> BaseMetadataIndexListener::find(Types::UniversalLabel const & label,
                                                                 Types::SimpleDataType const & value) const
{
    return impl_->find({label, value});
}

void BaseMetadataIndexListener::metadataSetKey(KLV::Key &) {}

void BaseMetadataIndexListener::createdMetadataSet(MetadataSet *) {}

void BaseMetadataIndexListener::removedMetadataSet(MetadataSet *) {}

void BaseMetadataIndexListener::addedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement,
                                             Element &, Types::BaseType const & newValue)
{
    if (metaElement == nullptr || !isIndexed(metaElement->universalLabel()))
        return;
    auto const * const value = dynamic_cast<Types::SimpleDataType const *>(&newValue);
    if (value != nullptr)
        impl_->insert({metaElement->universalLabel(), *value}, set);
}

void BaseMetadataIndexListener::updatedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement,
                                               Element &, Types::SimpleDataType const & oldValue,
                                               Types::SimpleDataType const & newValue)
{
    if (metaElement == nullptr || !isIndexed(metaElement->universalLabel()))
        return;
    Types::UniversalLabel const & label = metaElement->universalLabel();
    impl_->replace({label, oldValue}, {label, newValue}, set);
}

void BaseMetadataIndexListener::updatedElement(MetadataSet &, MetaMetadata::MetaElement const *, Element &,
                                               Types::Collection const &, Types::Collection const &)
{
}

void BaseMetadataIndexListener::updatedElementCollection(MetadataSet &, MetaMetadata::MetaElement const *, Element &,
                                                         Types::Collection const &, unsigned int,
                                                         Types::SimpleDataType const *)
{
}

void BaseMetadataIndexListener::removedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement,
                                               Element &, Types::BaseType const & oldValue)
{
    if (metaElement == nullptr || !isIndexed(metaElement->universalLabel()))
        return;
    auto const * const value = dynamic_cast<Types::SimpleDataType const *>(&oldValue);
    if (value != nullptr)
        impl_->remove({metaElement->universalLabel(), *value}, set);
}

}}}
