#pragma once

#include "Platform/Allocation.h"

#include <type_traits>

namespace Vantry { namespace Templates {

/// A pointer with one owner, which a copy hands on: in a signature it means
/// that ownership passes. The source of a copy is empty afterwards, so this
/// is no element of a container.
template <class T>
class auto_ptr
{
    // Drops a constructor where the pointers don't convert.
    template <class Derived>
    using Convertible = std::enable_if_t<std::is_convertible<Derived *, T *>::value>;

public:
    VANTRY_CLASS_ALLOCATION

    using element_type = T;

    explicit auto_ptr(T * pointer = nullptr) noexcept : pointer_(pointer) {}
    auto_ptr(auto_ptr & other) noexcept : pointer_(other.release()) {}
    auto_ptr(auto_ptr && other) noexcept : pointer_(other.release()) {}

    template <class Derived, class = Convertible<Derived>>
    auto_ptr(auto_ptr<Derived> & other) noexcept : pointer_(other.release())
    {
    }

    template <class Derived, class = Convertible<Derived>>
    auto_ptr(auto_ptr<Derived> && other) noexcept : pointer_(other.release())
    {
    }

    ~auto_ptr() { delete pointer_; }

    // Assigned to itself, it takes back what it has just released.
    auto_ptr & operator=(auto_ptr & other) noexcept
    {
        reset(other.release());
        return *this;
    }

    auto_ptr & operator=(auto_ptr && other) noexcept
    {
        reset(other.release());
        return *this;
    }

    template <class Derived>
    auto_ptr & operator=(auto_ptr<Derived> & other) noexcept
    {
        reset(other.release());
        return *this;
    }

    template <class Derived>
    auto_ptr & operator=(auto_ptr<Derived> && other) noexcept
    {
        reset(other.release());
        return *this;
    }

    T & operator*() const noexcept { return *pointer_; }
    T * operator->() const noexcept { return pointer_; }
    T * get() const noexcept { return pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    /// Gives the object up to the caller.
    T * release() noexcept
    {
        T * const pointer = pointer_;
        pointer_ = nullptr;
        return pointer;
    }

    /// Deletes what is owned, unless it is `pointer` itself, and owns that.
    void reset(T * pointer = nullptr) noexcept
    {
        if (pointer == pointer_)
            return;
        T * const old = pointer_;
        pointer_ = pointer;
        delete old;
    }

private:
    T * pointer_;
};

}}
