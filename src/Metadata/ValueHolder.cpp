#include "Metadata/ValueHolder.h"

namespace Vantry { namespace Metadata {

void ValueHolder::checkIfValueIsInEnumeration(Types::SimpleDataType const &) const {}

}}
