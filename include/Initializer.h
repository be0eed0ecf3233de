#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry {

namespace Platform { namespace Synchronization {
class Mutex;
}}

/// Start and end of the library in a process, and the register of its
/// singletons.
///
/// Loading the library makes the instance and unloading it shuts it down, so
/// an application needs neither call.
class VANTRY_EXPORT Initializer
{
public:
    VANTRY_CLASS_ALLOCATION

    /// Tells the libraries apart that register singletons here. 0 is this
    /// library; others choose a number of their own.
    using VANTRY_LIBRARY_ID = int;

    Initializer(Initializer const &) = delete;
    Initializer & operator=(Initializer const &) = delete;

    /// The instance, made on first use. Any thread may call it.
    static Initializer & instance();

    /// Takes the DataIO::Memory::MemoryBlockFactory down, then all registered
    /// singletons, those of the last registered library first, and then the
    /// instance. What holds on to one of them must not use it any more. A
    /// second call does nothing; `instance` afterwards starts anew. What a
    /// teardown throws goes on to the caller, and what is left waits for the
    /// next call.
    static void shutdown();

    /// Guards the creation of every singleton and the generators of
    /// identifiers.
    Platform::Synchronization::Mutex & singletonMutex();

    /// Remembers how to take a singleton of `library` down. The caller holds
    /// `singletonMutex`.
    ///
    /// \throws Exceptions::BadAlloc; the teardown is then not registered.
    void registerSingleton(void (*teardown)(), VANTRY_LIBRARY_ID library);

    /// Takes the singletons of `library` down, the last registered first. The
    /// caller holds `singletonMutex` or is alone. What a teardown throws goes
    /// on to the caller, and the library stays registered.
    void libraryUnloaded(VANTRY_LIBRARY_ID library);

private:
    Initializer();
    ~Initializer();

    class SingletonRegistry;
    SingletonRegistry * registry_;
};

}
