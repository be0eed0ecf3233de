#include "Platform/PlatformName.h"

#include "Platform/Environment.h"
#include "Platform/WideLiteral.h"

namespace Vantry { namespace Platform {

Templates::wstring platformName()
{
    Templates::wstring name;
    return getenv(wide(u"VANTRY_PLATFORM_NAME"), name) && !name.empty() ? name : realPlatformName();
}

Templates::wstring realPlatformName()
{
    return wide(u"linux").text;
}

}}
