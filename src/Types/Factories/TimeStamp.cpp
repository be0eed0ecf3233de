#include "Types/Factories/TimeStamp.h"

#include "Initializer.h"
#include "Platform/Synchronization/ScopedLock.h"
#include "Platform/Time.h"
#include "Types/Factories/DeterministicMode.h"

#include <algorithm>

namespace Vantry { namespace Types { namespace Factories { namespace TimeStamp {

namespace {

Timestamp timestamp(Platform::Time const & time)
{
    auto const byte = [](Platform::Int32 field)
    {
        return static_cast<unsigned char>(field);
    };

    // A timestamp has no second 60.
    return Timestamp(static_cast<unsigned short>(time.year + 1900), byte(time.month + 1), byte(time.day),
                     byte(time.hour), byte(time.minute), byte(std::min(time.second, 59)),
                     static_cast<unsigned short>(time.milliseconds));
}

}

Timestamp getCurrentDate()
{
    Platform::Synchronization::ScopedLock const lock(Initializer::instance().singletonMutex());

    if (DeterministicMode::isOn())
        return Timestamp(2003, 1, 1, 1, 0, 0, static_cast<unsigned short>(0));
    return timestamp(Platform::utctime());
}

}}}}
