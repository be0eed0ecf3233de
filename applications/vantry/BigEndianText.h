#pragma once

#include "Platform/BigEndian.h"
#include "Platform/Integers.h"

#include <string_view>

namespace Vantry { namespace Application {

/// The number that stands at a place, high byte first.
template <class Number>
Number numberAt(std::string_view bytes, std::size_t place)
{
    return Platform::readBigEndian<Number>(reinterpret_cast<unsigned char const *>(bytes.data()) + place);
}

}}
