#include "Platform/Clock.h"

#include <atomic>
#include <chrono>

namespace Vantry { namespace Platform {

namespace {

UInt64 systemMilliseconds()
{
    using namespace std::chrono;
    return static_cast<UInt64>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

std::atomic<UInt64 (*)()> theClock{&systemMilliseconds};

}

UInt64 monotonicMilliseconds()
{
    return theClock.load(std::memory_order_relaxed)();
}

void replaceMonotonicClock(UInt64 (*clock)())
{
    theClock.store(clock != nullptr ? clock : &systemMilliseconds, std::memory_order_relaxed);
}

}}
