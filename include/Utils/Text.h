#pragma once

#include "Platform/Text.h"

namespace Vantry { namespace Utils {

using Platform::stringToWstring;
using Platform::wstringToString;

/// UTF-8 to UTF-16, up to the first zero.
inline Templates::wstring stringToWstring(Templates::string const & text)
{
    return Platform::stringToWstring(text.c_str());
}

/// UTF-16 to UTF-8, up to the first zero.
inline Templates::string wstringToString(Templates::wstring const & text)
{
    return Platform::wstringToString(text.c_str());
}

}}
