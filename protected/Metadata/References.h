#pragma once

#include "Templates/auto_ptr.h"
#include "Types/Identifiers.h"

namespace Vantry {
namespace Types {
class Reference;
class SimpleDataType;
}

namespace Metadata {

class Element;
class MetadataSet;

/// References as values of elements.
namespace References {

/// The value as a reference.
///
/// \throws Exceptions::InvalidType when it is none.
Types::Reference const & asReference(Types::SimpleDataType const & value);
Templates::auto_ptr<Types::Reference> asReference(Templates::auto_ptr<Types::SimpleDataType> value);

/// A reference to a set for an element whose values are of `type`.
///
/// \throws Exceptions::InvalidMetaAttribute when these are no references.
/// \throws Exceptions::NotFound for a set without instance identifier.
Templates::auto_ptr<Types::Reference> referenceTo(MetadataSet const & target, Types::Identifiers::Identifier type);

}
}
}
