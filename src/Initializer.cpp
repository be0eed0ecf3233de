#include "Initializer.h"

#include "DataIO/Memory/MemoryBlockFactory.h"
#include "Platform/Synchronization/Mutex.h"
#include "Templates/Containers.h"

#include <atomic>
#include <cstddef>
#include <mutex>

namespace Vantry {

// The libraries with their teardowns, and the lock under which singletons are
// made.
class Initializer::SingletonRegistry
{
public:
    VANTRY_CLASS_ALLOCATION

    Platform::Synchronization::Mutex & mutex() { return mutex_; }

    void registerSingleton(void (*teardown)(), VANTRY_LIBRARY_ID library)
    {
        // First of all, since an identifier without teardowns does no harm.
        if (teardowns_.find(library) == teardowns_.end())
            libraries_.push_back(library);
        teardowns_[library].push_back(teardown);
    }

    void libraryUnloaded(VANTRY_LIBRARY_ID library)
    {
        auto const found = teardowns_.find(library);
        if (found == teardowns_.end())
            return;

        // A copy, since a teardown may bring another singleton up.
        Teardowns const teardowns = found->second;
        for (auto teardown = teardowns.rbegin(); teardown != teardowns.rend(); ++teardown)
            (*teardown)();
        teardowns_.erase(library);
    }

    void allUnloaded()
    {
        for (std::size_t i = libraries_.size(); i > 0; --i)
            libraryUnloaded(libraries_[i - 1]);
    }

private:
    using Teardowns = Templates::vector<void (*)()>;

    Platform::Synchronization::Mutex mutex_;
    Templates::vector<VANTRY_LIBRARY_ID> libraries_; // as they were first seen; one that came back stands here twice
    Templates::map<VANTRY_LIBRARY_ID, Teardowns> teardowns_;
};

namespace {

// Both are initialised at compile time and need no destruction: static
// objects anywhere may use the library before and after those of this file.
std::mutex creationMutex;
std::atomic<Initializer *> theInitializer{nullptr};

}

Initializer::Initializer() : registry_(new SingletonRegistry) {}

Initializer::~Initializer()
{
    delete registry_;
}

Initializer & Initializer::instance()
{
    Initializer * initializer = theInitializer.load(std::memory_order_acquire);
    if (initializer != nullptr)
        return *initializer;

    std::lock_guard<std::mutex> const lock(creationMutex);
    initializer = theInitializer.load(std::memory_order_relaxed);
    if (initializer == nullptr)
    {
        initializer = new Initializer;
        theInitializer.store(initializer, std::memory_order_release);
    }
    return *initializer;
}

void Initializer::shutdown()
{
    if (theInitializer.load(std::memory_order_acquire) == nullptr)
        return;

    std::lock_guard<std::mutex> const lock(creationMutex);
    Initializer * const initializer = theInitializer.load(std::memory_order_relaxed);
    if (initializer == nullptr)
        return;

    DataIO::Memory::MemoryBlockFactory::destroy();
    initializer->registry_->allUnloaded();
    theInitializer.store(nullptr, std::memory_order_release);
    delete initializer;
}

Platform::Synchronization::Mutex & Initializer::singletonMutex()
{
    return registry_->mutex();
}

void Initializer::registerSingleton(void (*teardown)(), VANTRY_LIBRARY_ID library)
{
    registry_->registerSingleton(teardown, library);
}

void Initializer::libraryUnloaded(VANTRY_LIBRARY_ID library)
{
    registry_->libraryUnloaded(library);
}

}
