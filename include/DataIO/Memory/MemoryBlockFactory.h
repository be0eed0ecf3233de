#pragma once

#include "DataIO/BlockFactory.h"

namespace Vantry { namespace DataIO { namespace Memory {

struct MemoryBlockConfig;
template <class Config>
class BaseMemoryBlock_T;

/// Makes blocks in memory. There is one factory, which any thread may use.
class VANTRY_EXPORT MemoryBlockFactory : public BlockFactory
{
public:
    /// The factory, made on first use.
    ///
    /// \throws Exceptions::BadAlloc.
    static MemoryBlockFactory & instance();

    /// Deletes the factory. Blocks that are still there stay good to read
    /// and to release, but can't make further ones.
    static void destroy();

    MemoryBlockFactory(MemoryBlockFactory const &) = delete;
    MemoryBlockFactory & operator=(MemoryBlockFactory const &) = delete;
    ~MemoryBlockFactory() override;

    BlockHolder create(UInt64 size) override;

private:
    friend class BaseMemoryBlock_T<MemoryBlockConfig>;

    MemoryBlockFactory() noexcept;

    /// What becomes of a block that nobody refers to. It belongs to no
    /// object, since blocks may outlive the factory.
    static void reuse(BaseMemoryBlock_T<MemoryBlockConfig> * block) noexcept;
};

}}}
