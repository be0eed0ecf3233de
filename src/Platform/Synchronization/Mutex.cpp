#include "Platform/Synchronization/Mutex.h"

#include "Exceptions/BadAlloc.h"

#include <mutex>
#include <new>

namespace Vantry { namespace Platform { namespace Synchronization {

class Mutex::Impl
{
public:
    std::recursive_mutex mutex;
};

Mutex::Mutex() : impl_(nullptr)
{
    void * const place = malloc_alloc::allocate(sizeof(Impl));
    if (place == nullptr)
        throw Exceptions::BadAlloc("Failed to create a mutex", __FILE__, __LINE__);
    impl_ = new (place) Impl;
}

Mutex::~Mutex()
{
    impl_->~Impl();
    malloc_alloc::deallocate(impl_, sizeof(Impl));
}

void Mutex::lock()
{
    impl_->mutex.lock();
}

void Mutex::unlock()
{
    impl_->mutex.unlock();
}

}}}
