#pragma once

#include "Templates/Containers.h"
#include "Types/Identifiers.h"

namespace Vantry {
namespace MetaMetadata {
class MetaAttribute;
class MetaCollectionElement;
}
namespace Types {
class BaseType;
class SimpleDataType;
}

namespace Metadata {

class Element;

/// What the schema says to the values of an element.
namespace SchemaRules {

/// Whether values of the type refer to sets.
inline bool isReference(Types::Identifiers::Identifier type) noexcept
{
    return type == Types::Identifiers::StrongReference || type == Types::Identifiers::WeakReference;
}

/// The type of a value; Unknown when there is none.
Types::Identifiers::Identifier identifierOf(Types::BaseType const * value);

/// The attribute's name as people see it, "<unknown>" when it has none.
Templates::wstring nameOf(Element const & element);

/// A text about the values of the element: "Value 'NAME'" and `rest`.
Templates::wstring aboutValue(Element const & element, char const * rest);

/// The same with a number in the midst of the rest.
Templates::wstring aboutValue(Element const & element, char const * lead, unsigned int number, char const * end);

/// The rules for the collection of an element; null when there are none.
MetaMetadata::MetaCollectionElement const * collectionRules(Element const & element);

/// Checks a value before an element that holds one gets it; null takes the
/// value away, with `force` also a required one.
///
/// \throws Exceptions::InvalidChange.
void checkValue(Element const & element, Types::SimpleDataType const * value, bool force);

/// Checks that the attribute has a place in the schema of its set.
///
/// \throws Exceptions::InvalidMetaAttribute with the text.
void requirePlace(Element const & element, char const * text);

/// What elements with a single value and those that refer to sets say then.
extern char const NO_PLACE_TEXT[];

}
}
}
