#include "Platform/Environment.h"

#include "Exceptions/Check.h"
#include "Exceptions/OSError.h"
#include "Platform/Text.h"
#include "Platform/WideLiteral.h"

#include <cstdlib>

namespace Vantry { namespace Platform {

bool getenv(unsigned short const * name, Templates::wstring & value)
{
    char const * const text = ::getenv(wstringToString(name).c_str());
    if (text != nullptr)
        value = stringToWstring(text);
    return text != nullptr;
}

int setenv(unsigned short const * name, unsigned short const * value)
{
    return ::setenv(wstringToString(name).c_str(), wstringToString(value).c_str(), 1);
}

bool tempDir(Templates::wstring & directory)
{
    return getenv(wide(u"TMP"), directory) || getenv(wide(u"TEMP"), directory);
}

Templates::wstring tempDir()
{
    Templates::wstring directory;
    if (!tempDir(directory))
        VANTRY_FAIL(OSError, "No temporary directory defined in the system");
    return directory;
}

}}
