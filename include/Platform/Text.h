#pragma once

#include "Platform/Export.h"
#include "Templates/Containers.h"

namespace Vantry { namespace Platform {

/// UTF-8 to UTF-16, whatever the locale. Bytes that are no UTF-8 become lone
/// surrogates (DC80h to DCFFh), so that any text survives the way there and
/// back. Null gives empty text.
///
/// \throws Exceptions::BadAlloc.
VANTRY_EXPORT Templates::wstring stringToWstring(char const * text);

/// UTF-16 to UTF-8, the reverse of stringToWstring.
///
/// \throws Exceptions::BadAlloc.
VANTRY_EXPORT Templates::string wstringToString(unsigned short const * text);

}}
