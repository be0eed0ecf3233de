#include "Utils/Test/DeterministicScope.h"

#include "Initializer.h"
#include "Platform/Environment.h"
#include "Platform/Synchronization/ScopedLock.h"
#include "Platform/WideLiteral.h"
#include "Types/Factories/DeterministicMode.h"

namespace Vantry { namespace Utils { namespace Test {

namespace {

constexpr auto PLATFORM_NAME = Platform::wide(u"VANTRY_PLATFORM_NAME");
constexpr auto SCOPE_PLATFORM = Platform::wide(u"win32");
constexpr auto REAL_PLATFORM = Platform::wide(u"");

}

DeterministicScope::DeterministicScope()
{
    Platform::Synchronization::ScopedLock const lock(Initializer::instance().singletonMutex());
    Types::Factories::DeterministicMode::turn(true);
    Platform::setenv(PLATFORM_NAME, SCOPE_PLATFORM);
}

DeterministicScope::~DeterministicScope()
{
    Platform::Synchronization::ScopedLock const lock(Initializer::instance().singletonMutex());
    Types::Factories::DeterministicMode::turn(false);
    Platform::setenv(PLATFORM_NAME, REAL_PLATFORM);
}

}}}
