#pragma once

#include "KLV/Key.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry {
namespace MetaMetadata {
class MetaElement;
}
namespace Types {
class BaseType;
class Collection;
class SimpleDataType;
}

namespace Metadata {

class Element;
class MetadataSet;

/// Hears of each change to the sets of a PartitionMetadata.
///
/// What elements tell comes before the change: the element has its old value
/// still, and the change doesn't take place when a listener throws. Then some
/// listeners may have heard of it and others not. `metaElement` is null for an
/// attribute that the dictionary doesn't know. Values belong to the element.
///
/// Listeners run in the thread that makes the change. They may add and remove
/// listeners.
class VANTRY_EXPORT PartitionMetadataListener
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~PartitionMetadataListener();

    /// A set with this key is about to be made or loaded. The listener may
    /// give it another key.
    virtual void metadataSetKey(KLV::Key & key) = 0;

    /// A set has come into the partition. What it was loaded with has been
    /// told before.
    virtual void createdMetadataSet(MetadataSet * set) = 0;

    /// A set is to leave the partition and be destroyed; throwing keeps it
    /// there. Its values are told to go afterwards.
    virtual void removedMetadataSet(MetadataSet * set) = 0;

    /// An empty element is to receive a value, or a collection is loaded.
    virtual void addedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                              Types::BaseType const & newValue) = 0;

    /// A value is to be replaced.
    virtual void updatedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                                Types::SimpleDataType const & oldValue, Types::SimpleDataType const & newValue) = 0;
    virtual void updatedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                                Types::Collection const & oldValue, Types::Collection const & newValue) = 0;

    /// A collection is to receive `item` at `index`; where `item` is null, the
    /// one at `index` is to go.
    virtual void updatedElementCollection(MetadataSet & set, MetaMetadata::MetaElement const * metaElement,
                                          Element & element, Types::Collection const & collection, unsigned int index,
                                          Types::SimpleDataType const * item) = 0;

    /// A value is to go, or its element is. All listeners hear of it, even
    /// when one of them throws.
    virtual void removedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                                Types::BaseType const & oldValue) = 0;
};

}
}
