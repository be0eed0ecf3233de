#include "Platform/Synchronization/Yield.h"

#include <sched.h>

namespace Vantry { namespace Platform { namespace Synchronization {

void yield() noexcept
{
    ::sched_yield();
}

}}}
