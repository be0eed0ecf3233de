#pragma once

namespace Vantry {
namespace Types {
class BaseType;
}

namespace Metadata {

class Element;

/// The value of an element of any class; null when there is none.
Types::BaseType const * valueOf(Element const & element);

}
}
