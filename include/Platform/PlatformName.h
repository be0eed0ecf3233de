#pragma once

#include "Platform/Export.h"
#include "Templates/Containers.h"

namespace Vantry { namespace Platform {

/// The name of the system as files state it: the value of the environment
/// variable VANTRY_PLATFORM_NAME, or the real name when that is not set or
/// empty.
VANTRY_EXPORT Templates::wstring platformName();

/// The name of the system that this library was built for.
VANTRY_EXPORT Templates::wstring realPlatformName();

}}
