#include "KLV/LocalElement.h"

#include "Types/UInt16.h"

namespace Vantry { namespace KLV {

LocalElement::LocalElement(Value & set) : tag_(set), length_(Types::UInt16(set).value()), value_(set, length_) {}

}}
