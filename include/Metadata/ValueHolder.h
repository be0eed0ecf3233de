#pragma once

#include "Platform/Export.h"

namespace Vantry {
namespace Types {
class SimpleDataType;
}

namespace Metadata {

/// The part of an element whose values are plain.
class VANTRY_EXPORT ValueHolder
{
protected:
    /// The place for a test against the values that the schema lists. It lets
    /// all pass: the lists are there to be shown, and values beyond them are
    /// in use.
    void checkIfValueIsInEnumeration(Types::SimpleDataType const & value) const;
};

}
}
