#pragma once

namespace Vantry {
namespace Types {
class BaseType;
}

namespace MetaMetadata {

/// Whether two values have the same type and the same bytes. Null is equal to
/// null alone.
bool sameValue(Types::BaseType const * left, Types::BaseType const * right);

}
}
