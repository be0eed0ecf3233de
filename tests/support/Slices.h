#pragma once

#include "DataIO/BlockFactory.h"
#include "DataIO/Chain.h"
#include "support/Bytes.h"

#include <algorithm>
#include <atomic>

namespace Vantry { namespace Tests {

/// Makes blocks, and knows how many it made and how many are still there.
/// It outlives them.
class CountingBlocks : public DataIO::BlockFactory
{
public:
    DataIO::BlockHolder create(UInt64 size) override
    {
        ++made_;
        ++alive_;
        return DataIO::BlockHolder(new Counted(*this, size));
    }

    int made() const { return made_; }
    int alive() const { return alive_; }

    /// The bytes on a block of their own.
    Templates::auto_ptr<DataIO::Slice> slice(Bytes const & bytes)
    {
        DataIO::BlockHolder const block = create(bytes.size());
        std::copy(bytes.begin(), bytes.end(), block.block()->data());
        return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(block.block(), 0, bytes.size()));
    }

private:
    class Counted final : public DataIO::Block
    {
    public:
        Counted(CountingBlocks & blocks, UInt64 size) : blocks_(blocks), bytes_(size) {}
        ~Counted() override { --blocks_.alive_; }

        unsigned char const * data() const override { return bytes_.data(); }
        unsigned char * data() override { return bytes_.data(); }
        UInt64 size() const override { return bytes_.size(); }
        int addReference() override { return ++references_; }

        int release() override
        {
            int const left = --references_;
            if (left == 0)
                delete this;
            return left;
        }

        DataIO::BlockHolder createBlock(UInt64 size) override { return blocks_.create(size); }

    private:
        CountingBlocks & blocks_;
        std::atomic<int> references_{1};
        Bytes bytes_;
    };

    std::atomic<int> made_{0};
    std::atomic<int> alive_{0};
};

inline Bytes bytesOf(DataIO::Slice const & slice)
{
    return Bytes(slice.begin(), slice.end());
}

inline Bytes bytesOf(DataIO::Chain const & chain)
{
    Bytes bytes;
    for (DataIO::Slice const & slice : chain)
        bytes += bytesOf(slice);
    return bytes;
}

}}
