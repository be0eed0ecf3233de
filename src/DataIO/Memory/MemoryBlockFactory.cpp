#include "DataIO/Memory/MemoryBlockFactory.h"

#include "DataIO/Memory/MemoryBlock.h"

#include <atomic>
#include <mutex>

namespace Vantry { namespace DataIO { namespace Memory {

namespace {

// Both are ready before any constructor runs, and never destroyed.
std::mutex instanceMutex;
std::atomic<MemoryBlockFactory *> theInstance{nullptr};

}

MemoryBlockFactory & MemoryBlockFactory::instance()
{
    MemoryBlockFactory * factory = theInstance.load(std::memory_order_acquire);
    if (factory == nullptr)
    {
        std::lock_guard<std::mutex> const lock(instanceMutex);
        factory = theInstance.load(std::memory_order_relaxed);
        if (factory == nullptr)
        {
            factory = new MemoryBlockFactory;
            theInstance.store(factory, std::memory_order_release);
        }
    }
    return *factory;
}

void MemoryBlockFactory::destroy()
{
    std::lock_guard<std::mutex> const lock(instanceMutex);
    delete theInstance.exchange(nullptr);
}

MemoryBlockFactory::MemoryBlockFactory() noexcept = default;

MemoryBlockFactory::~MemoryBlockFactory() = default;

BlockHolder MemoryBlockFactory::create(UInt64 size)
{
    return BlockHolder(new MemoryBlock(*this, size));
}

void MemoryBlockFactory::reuse(BaseMemoryBlock_T<MemoryBlockConfig> * block) noexcept
{
    delete block;
}

}}}
