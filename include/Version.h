#pragma once

#include "Platform/Export.h"

// Some C libraries have macros of these names for device numbers.
#undef major
#undef minor

/// The version of the library that is loaded, "4.4.3.0" for example.
namespace Vantry { namespace Version {

VANTRY_EXPORT unsigned short major();
VANTRY_EXPORT unsigned short minor();
VANTRY_EXPORT unsigned short patch();
VANTRY_EXPORT unsigned short build();

/// The four numbers with dots between them.
VANTRY_EXPORT unsigned short const * versionString();

}}
