#pragma once

#include "Platform/Allocation.h"
#include "Templates/LockedCounter.h"
#include "Templates/auto_ptr.h"

#include <type_traits>
#include <utility>

namespace Vantry { namespace Templates {

/// A pointer whose copies share one object; the last to go deletes it.
///
/// Copies may be made and dropped on several threads. The object itself is
/// not made safe by it.
template <class T, class Counter = LockedCounter>
class SharedPtr
{
    // Drops a constructor where the pointers don't convert.
    template <class Derived>
    using Convertible = std::enable_if_t<std::is_convertible<Derived *, T *>::value>;

public:
    VANTRY_CLASS_ALLOCATION

    using element_type = T;

    SharedPtr() noexcept : pointer_(nullptr), owned_(false), counter_(nullptr), freeCounter_(nullptr) {}

    /// Takes `pointer` over. With `owned` false it is only passed around and
    /// never deleted.
    ///
    /// \throws Exceptions::BadAlloc; an owned object is then deleted.
    explicit SharedPtr(T * pointer, bool owned = true) :
        pointer_(pointer), owned_(owned), counter_(nullptr), freeCounter_(&freeCounter)
    {
        auto_ptr<T> guard(owned ? pointer : nullptr);
        counter_ = static_cast<Int32 *>(Platform::allocateOrThrow(sizeof(Int32)));
        *counter_ = 1;
        guard.release();
    }

    SharedPtr(SharedPtr const & other) noexcept :
        pointer_(other.pointer_), owned_(other.owned_), counter_(other.counter_), freeCounter_(other.freeCounter_)
    {
        addReference();
    }

    SharedPtr(SharedPtr && other) noexcept : SharedPtr() { swap(other); }

    template <class Derived, class = Convertible<Derived>>
    SharedPtr(SharedPtr<Derived, Counter> const & other) noexcept :
        pointer_(other.pointer_), owned_(other.owned_), counter_(other.counter_), freeCounter_(other.freeCounter_)
    {
        addReference();
    }

    template <class Derived, class = Convertible<Derived>>
    SharedPtr(auto_ptr<Derived> pointer) : SharedPtr(static_cast<T *>(pointer.release()))
    {
    }

    // The analyzer can't follow the count.
    ~SharedPtr() { release(); } // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)

    SharedPtr & operator=(SharedPtr other) noexcept
    {
        swap(other);
        return *this;
    }

    T & operator*() const noexcept { return *pointer_; }
    T * operator->() const noexcept { return pointer_; }
    T * get() const noexcept { return pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    /// Lets go of the object.
    void reset() noexcept { SharedPtr().swap(*this); }

    void swap(SharedPtr & other) noexcept
    {
        std::swap(pointer_, other.pointer_);
        std::swap(owned_, other.owned_);
        std::swap(counter_, other.counter_);
        std::swap(freeCounter_, other.freeCounter_);
    }

    /// This object as one of a derived class; empty when it is none.
    template <class Derived>
    SharedPtr<Derived, Counter> dynamicCast() const noexcept
    {
        SharedPtr<Derived, Counter> result;
        Derived * const derived = dynamic_cast<Derived *>(pointer_);
        if (derived == nullptr)
            return result;

        result.pointer_ = derived;
        result.owned_ = owned_;
        result.counter_ = counter_;
        result.freeCounter_ = freeCounter_;
        result.addReference();
        return result;
    }

private:
    template <class U, class OtherCounter>
    friend class SharedPtr;

    static void freeCounter(Int32 * counter) noexcept { Platform::malloc_alloc::deallocate(counter, sizeof(Int32)); }

    void addReference() noexcept
    {
        if (counter_ != nullptr)
            Counter::increment(*counter_);
    }

    void release() noexcept
    {
        if (counter_ == nullptr || Counter::decrement(*counter_) != 0)
            return;
        if (owned_)
            delete pointer_;
        freeCounter_(counter_);
    }

    T * pointer_;
    bool owned_;
    Int32 * counter_;
    // The module that allocated the counter also frees it.
    void (*freeCounter_)(Int32 *) noexcept;
};

template <class T, class U, class Counter>
bool operator==(SharedPtr<T, Counter> const & left, SharedPtr<U, Counter> const & right) noexcept
{
    return left.get() == right.get();
}

template <class T, class U, class Counter>
bool operator!=(SharedPtr<T, Counter> const & left, SharedPtr<U, Counter> const & right) noexcept
{
    return left.get() != right.get();
}

}}
