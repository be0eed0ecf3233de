#include "Metadata/OwnerCalls.h"

#include "Metadata/Element.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/MetadataSetOwner.h"
#include "Types/Collection.h"
#include "Types/SimpleDataType.h"

namespace Vantry { namespace Metadata { namespace OwnerCalls {

namespace {

void removed(Element & element, Types::BaseType const & value)
{
    MetadataSet & set = element.metadataSet();
    if (set.owner() != nullptr)
        set.owner()->removedElement(set, element.metaElement(), element, value);
}

template <class Value>
void tellOfChange(Element & element, Value const * oldValue, Value const * newValue)
{
    MetadataSet & set = element.metadataSet();
    if (oldValue == nullptr && newValue != nullptr)
        added(element, *newValue);
    else if (oldValue != nullptr && newValue == nullptr)
        removed(element, *oldValue);
    else if (oldValue != nullptr && set.owner() != nullptr)
        set.owner()->updatedElement(set, element.metaElement(), element, *oldValue, *newValue);
}

}

void added(Element & element, Types::BaseType const & value)
{
    MetadataSet & set = element.metadataSet();
    if (set.owner() != nullptr)
        set.owner()->addedElement(set, element.metaElement(), element, value);
}

void changed(Element & element, Types::SimpleDataType const * oldValue, Types::SimpleDataType const * newValue)
{
    tellOfChange(element, oldValue, newValue);
}

void changed(Element & element, Types::Collection const * oldValue, Types::Collection const * newValue)
{
    tellOfChange(element, oldValue, newValue);
}

void changedItem(Element & element, Types::Collection const & collection, unsigned int index,
                 Types::SimpleDataType const * item)
{
    MetadataSet & set = element.metadataSet();
    if (set.owner() != nullptr)
        set.owner()->updatedElementCollection(set, element.metaElement(), element, collection, index, item);
}

void removedWithElement(Element & element, Types::BaseType const * value) noexcept
{
    try
    {
        if (value != nullptr)
            removed(element, *value);
    }
    catch (...)
    {
        // The element goes, whatever the owner says.
    }
}

}}}
