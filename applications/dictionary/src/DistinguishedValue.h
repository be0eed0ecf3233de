#pragma once

#include "Schema/Tables.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace Types {
class BaseType;
}

namespace Schema {

/// The value of a type that a wire form stands for.
///
/// \param subType  the type of each value of a collection
///
/// \throws Exceptions::BaseException when the bytes are not those of one value.
Templates::auto_ptr<Types::BaseType const> makeDistinguished(Row<unsigned char> const & bytes,
                                                             Types::Identifiers::Identifier type,
                                                             Types::Identifiers::Identifier subType);

}
}
