#include "Platform/CurrentThread.h"

#include <unistd.h>

namespace Vantry { namespace Platform {

UInt32 currentThreadId() noexcept
{
    static thread_local UInt32 const id = static_cast<UInt32>(::gettid());
    return id;
}

}}
