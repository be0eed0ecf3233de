#pragma once

#include "DataIO/Block.h"

namespace Vantry { namespace DataIO {

/// Holds one reference of a block, or nothing.
class BlockHolder
{
public:
    VANTRY_CLASS_ALLOCATION

    BlockHolder() noexcept : block_(nullptr) {}

    /// Takes over a reference that the caller has.
    explicit BlockHolder(Block * block) noexcept : block_(block) {}

    BlockHolder(BlockHolder const & other) : block_(other.block_)
    {
        if (block_ != nullptr && this != &other)
            block_->addReference();
    }

    BlockHolder(BlockHolder && other) noexcept : block_(other.release()) {}

    BlockHolder & operator=(BlockHolder const & other)
    {
        if (this == &other)
            return *this;
        if (other.block_ != nullptr)
            other.block_->addReference();
        letGo();
        block_ = other.block_;
        return *this;
    }

    BlockHolder & operator=(BlockHolder && other) noexcept
    {
        if (this == &other)
            return *this;
        letGo();
        block_ = other.release();
        return *this;
    }

    ~BlockHolder() { letGo(); }

    /// Gives the reference up to the caller.
    Block * release() noexcept
    {
        Block * const block = block_;
        block_ = nullptr;
        return block;
    }

    Block * block() const noexcept { return block_; }

private:
    void letGo()
    {
        if (block_ != nullptr)
            block_->release();
    }

    Block * block_;
};

}}
