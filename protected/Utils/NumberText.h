#pragma once

#include "Platform/Integers.h"
#include "Templates/Containers.h"

#include <charconv>

namespace Vantry { namespace Utils {

/// A number for a message, in lower-case hexadecimal digits without prefix.
/// It is the same in every locale, as a stream's isn't.
inline Templates::string hexadecimal(UInt64 value)
{
    char text[16];
    return Templates::string(text, std::to_chars(text, text + sizeof text, value, 16).ptr);
}

}}
