#pragma once

#include "DataIO/BlockHolder.h"
#include "Exceptions/BadAlloc.h"
#include "Exceptions/Check.h"
#include "Platform/Synchronization/Interlocked.h"
#include "Platform/malloc_alloc.h"

namespace Vantry { namespace DataIO { namespace Memory {

/// A block with a buffer of its own. `Config` names the `Factory` that makes
/// blocks of this kind and takes them back.
template <class Config>
class BaseMemoryBlock_T : public Block
{
public:
    using Factory = typename Config::Factory;

    BaseMemoryBlock_T(BaseMemoryBlock_T const &) = delete;
    BaseMemoryBlock_T & operator=(BaseMemoryBlock_T const &) = delete;

    unsigned char const * data() const override { return data_; }
    unsigned char * data() override { return data_; }
    UInt64 size() const override { return size_; }
    int addReference() override { return Platform::Synchronization::interlockedIncrement(referenceCount_); }

    int release() override
    {
        int const left = Platform::Synchronization::interlockedDecrement(referenceCount_);
        if (left == 0)
            Factory::reuse(this);
        return left;
    }

    BlockHolder createBlock(UInt64 size) override { return factory_->create(size); }

protected:
    /// The one reference belongs to the caller.
    ///
    /// \throws Exceptions::BadAlloc.
    BaseMemoryBlock_T(Factory & factory, UInt64 size) :
        factory_(&factory), referenceCount_(1), size_(size), data_(allocate(size))
    {
        VANTRY_CHECK_TEXT(data_ != nullptr, "data_ != 0", BadAlloc, "Error allocating memory for a BaseMemoryBlock_T");
    }

    ~BaseMemoryBlock_T() override { Platform::malloc_alloc::deallocate(data_, size_); }

private:
    friend Factory;

    // A request for nothing may be answered with null, which is no failure.
    static unsigned char * allocate(UInt64 size)
    {
        return static_cast<unsigned char *>(Platform::malloc_alloc::allocate(size == 0 ? 1 : size));
    }

    Factory * factory_;
    int referenceCount_;
    UInt64 size_;
    unsigned char * data_;
};

}}}
