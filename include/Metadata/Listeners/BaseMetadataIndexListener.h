#pragma once

#include "Metadata/Listeners/MetadataIndexListener.h"

namespace Vantry { namespace Metadata { namespace Listeners {

/// An index of simple values; derived classes say of which attributes.
/// Attributes that the dictionary doesn't know and collections stay out of it.
///
/// The index points to the values, which stay in place until it hears that
/// they go. Finding, adding and removing take the same time in an index of any
/// size.
class VANTRY_EXPORT BaseMetadataIndexListener : public MetadataIndexListener
{
public:
    BaseMetadataIndexListener();
    BaseMetadataIndexListener(BaseMetadataIndexListener const &) = delete;
    BaseMetadataIndexListener & operator=(BaseMetadataIndexListener const &) = delete;
    ~BaseMetadataIndexListener() override;

    /// The sets in the order in which they got the value. A set that has it
    /// twice is there twice.
    Templates::vector<MetadataSet *> find(Types::UniversalLabel const & label,
                                          Types::SimpleDataType const & value) const override;

    /// These three do nothing.
    void metadataSetKey(KLV::Key & key) override;
    void createdMetadataSet(MetadataSet * set) override;
    void removedMetadataSet(MetadataSet * set) override;

    void addedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                      Types::BaseType const & newValue) override;
    void updatedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                        Types::SimpleDataType const & oldValue, Types::SimpleDataType const & newValue) override;

    /// These two do nothing.
    void updatedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                        Types::Collection const & oldValue, Types::Collection const & newValue) override;
    void updatedElementCollection(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                                  Types::Collection const & collection, unsigned int index,
                                  Types::SimpleDataType const * item) override;

    /// Takes the value of this set out; that of another set stays.
    void removedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                        Types::BaseType const & oldValue) override;

private:
    class Impl;
    Impl * impl_;
};

}}}
