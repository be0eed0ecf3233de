#pragma once

namespace Vantry {
namespace Metadata {
class Element;
}
namespace Types {
class BaseType;
}

namespace Application {

/// The value of an element of whatever class; null when there is none.
Types::BaseType const * contentOf(Metadata::Element const & element);

}
}
