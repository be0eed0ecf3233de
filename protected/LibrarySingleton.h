#pragma once

#include "Initializer.h"
#include "Platform/Synchronization/ScopedLock.h"

#include <atomic>

namespace Vantry {

/// The one `Object` of the process: made on first use, on any thread, and
/// taken down with the library.
template <class Object>
class LibrarySingleton
{
public:
    static Object & instance()
    {
        Object * object = object_.load(std::memory_order_acquire);
        return object != nullptr ? *object : make();
    }

private:
    static Object & make()
    {
        Initializer & initializer = Initializer::instance();
        Platform::Synchronization::ScopedLock const lock(initializer.singletonMutex());

        Object * object = object_.load(std::memory_order_relaxed);
        if (object == nullptr)
        {
            initializer.registerSingleton(&destroy, 0);
            object = new Object;
            object_.store(object, std::memory_order_release);
        }
        return *object;
    }

    static void destroy() { delete object_.exchange(nullptr); }

    static inline std::atomic<Object *> object_{nullptr};
};

}
