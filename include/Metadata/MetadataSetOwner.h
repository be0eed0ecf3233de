#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/Containers.h"
#include "Types/UniversalLabel.h"

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
class PartitionDictionary;

/// Who keeps sets, and hears what becomes of their elements.
///
/// Each operation that tells of a change is called before the change is made
/// and hinders it by throwing. `metaElement` is null for an attribute that the
/// dictionary doesn't know. Values belong to the element.
class VANTRY_EXPORT MetadataSetOwner
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~MetadataSetOwner();

    /// An empty element is to receive a value, or a collection is loaded.
    virtual void addedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                              Types::BaseType const & newValue) = 0;

    /// A value is to be replaced.
    virtual void updatedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                                Types::Collection const & oldValue, Types::Collection const & newValue) = 0;
    virtual void updatedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                                Types::SimpleDataType const & oldValue, Types::SimpleDataType const & newValue) = 0;

    /// A collection is to receive `item` at `index`; where `item` is null, the
    /// one at `index` is to go.
    virtual void updatedElementCollection(MetadataSet & set, MetaMetadata::MetaElement const * metaElement,
                                          Element & element, Types::Collection const & collection, unsigned int index,
                                          Types::SimpleDataType const * item) = 0;

    /// A value is to go, or its element is. What is thrown in the second case
    /// is lost.
    virtual void removedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement, Element & element,
                                Types::BaseType const & oldValue) = 0;

    /// Takes `to` over, also when it throws: a new set for this owner that is to become a copy of
    /// `from`, still without values.
    ///
    /// \param deep  whether the sets that `from` owns are copied too
    virtual void metadataSetCloned(MetadataSet const & from, MetadataSet & to, bool deep) = 0;

    /// The sets in which the attribute has this value.
    virtual Templates::vector<MetadataSet *> find(Types::UniversalLabel const & label,
                                                  Types::SimpleDataType const & value) const = 0;

    virtual PartitionDictionary & partitionDictionary() = 0;
    virtual PartitionDictionary const & partitionDictionary() const = 0;
};

}
}
