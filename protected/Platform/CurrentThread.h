#pragma once

#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace Platform {

/// The system's number of the calling thread: no other thread that runs at
/// the same time has it. It is asked for once in a thread's life.
VANTRY_EXPORT UInt32 currentThreadId() noexcept;

}}
