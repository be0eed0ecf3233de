#include "Version.h"

#include "Platform/WideLiteral.h"

// VANTRY_VERSION and its four parts come from the build.

namespace Vantry { namespace Version {

unsigned short major()
{
    return VANTRY_VERSION_MAJOR;
}

unsigned short minor()
{
    return VANTRY_VERSION_MINOR;
}

unsigned short patch()
{
    return VANTRY_VERSION_PATCH;
}

unsigned short build()
{
    return VANTRY_VERSION_TWEAK;
}

Types::ProductVersion::ReleaseVersion releaseVersion()
{
    return Types::ProductVersion::RELEASE_PATCHED;
}

unsigned short const * versionString()
{
    static constexpr auto text = Platform::wide(u"" VANTRY_VERSION);
    return text;
}

}}
