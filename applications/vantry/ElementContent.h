#pragma once

#include "Metadata/MetadataSet.h"

namespace Vantry {
namespace Types {
class BaseType;
}

namespace Application {

/// The value of an element of whatever class; null when there is none.
Types::BaseType const * contentOf(Metadata::Element const & element);

/// The value of an attribute, of whatever class the set is; null when it has
/// none of this type.
template <class Value>
Value const * valueOf(Metadata::MetadataSet const & set, Types::UniversalLabel const & attribute)
{
    Metadata::Element const * const element = set.findElement(attribute);
    return element != nullptr ? dynamic_cast<Value const *>(contentOf(*element)) : nullptr;
}

/// The set that an attribute refers to, of whatever class both are; null when
/// there is none.
Metadata::MetadataSet const * ownedBy(Metadata::MetadataSet const & set, Types::UniversalLabel const & attribute);

}
}
