#pragma once

#include "Platform/Export.h"
#include "Types/ProductVersion.h"

/// The version of the library that is loaded, "4.4.3.0" for example.
namespace Vantry { namespace Version {

VANTRY_EXPORT unsigned short major();
VANTRY_EXPORT unsigned short minor();
VANTRY_EXPORT unsigned short patch();
VANTRY_EXPORT unsigned short build();
VANTRY_EXPORT Types::ProductVersion::ReleaseVersion releaseVersion();

/// The four numbers with dots between them.
VANTRY_EXPORT unsigned short const * versionString();

}}
