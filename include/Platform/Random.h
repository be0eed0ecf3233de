#pragma once

#include "Platform/Export.h"

namespace Vantry { namespace Platform {

/// A random byte from the framework. Any thread may call it.
VANTRY_EXPORT unsigned char rand();

/// Does nothing: random bytes have no seed.
VANTRY_EXPORT void srand();

}}
