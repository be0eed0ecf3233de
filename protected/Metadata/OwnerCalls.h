#pragma once

namespace Vantry {
namespace Types {
class BaseType;
class Collection;
class SimpleDataType;
}

namespace Metadata {

class Element;

/// What an element tells the owner of its set, if there is one.
namespace OwnerCalls {

void added(Element & element, Types::BaseType const & value);

/// One of added, updated and removed, or nothing where both values are null.
void changed(Element & element, Types::SimpleDataType const * oldValue, Types::SimpleDataType const * newValue);
void changed(Element & element, Types::Collection const * oldValue, Types::Collection const * newValue);

/// A new item at `index`, or none in place of the one there.
void changedItem(Element & element, Types::Collection const & collection, unsigned int index,
                 Types::SimpleDataType const * item);

/// The removal of a value, if there is one, whose element goes.
void removedWithElement(Element & element, Types::BaseType const * value) noexcept;

}
}
}
