#pragma once

#include "Platform/Export.h"

namespace Vantry { namespace Platform { namespace Synchronization {

/// Gives the rest of this thread's turn on the processor to others that wait
/// for one.
VANTRY_EXPORT void yield() noexcept;

}}}
