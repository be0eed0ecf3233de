#pragma once

#include "DataIO/Memory/BaseMemoryBlock_T.h"
#include "DataIO/Memory/MemoryBlockFactory.h"

namespace Vantry { namespace DataIO { namespace Memory {

/// What makes a BaseMemoryBlock_T a MemoryBlock.
struct MemoryBlockConfig
{
    using Factory = MemoryBlockFactory;
};

/// A block of a MemoryBlockFactory.
class MemoryBlock final : public BaseMemoryBlock_T<MemoryBlockConfig>
{
public:
    MemoryBlock(MemoryBlockFactory & factory, UInt64 size) : BaseMemoryBlock_T(factory, size) {}
};

}}}
