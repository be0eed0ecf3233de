#pragma once

#include "DataIO/BlockFactory.h"
#include "DataIO/Chain.h"
#include "DataIO/SliceSource.h"
#include "Templates/SharedPtr.h"
#include "support/Bytes.h"

#include <algorithm>
#include <atomic>
#include <deque>
#include <random>

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

/// Gives pieces of a stream, each on a block of its own, at most as many
/// bytes as are asked for. An empty piece stands for nothing yet.
class PieceSource : public DataIO::SliceSource
{
public:
    PieceSource(CountingBlocks & blocks, std::vector<Bytes> const & pieces)
    {
        for (Bytes const & piece : pieces)
            pieces_.push_back(new DataIO::Slice(*blocks.slice(piece)));
    }

    ~PieceSource() override
    {
        for (DataIO::Slice * piece : pieces_)
            delete piece;
    }

    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch) override
    {
        Templates::auto_ptr<DataIO::Slice> slice(new DataIO::Slice);
        if (pieces_.empty())
            return slice;

        slice.reset(pieces_.front());
        pieces_.pop_front();
        if (slice->size() > howMuch)
            pieces_.push_front(slice->splice(slice->begin() + howMuch).release());
        offset_ += slice->size();
        return slice;
    }

    UInt64 absoluteOffset() const override { return offset_; }
    bool endOfStream() const override { return pieces_.empty(); }

    UInt64 skip(UInt64 howMuch) override
    {
        UInt64 skipped = 0;
        while (skipped < howMuch && !pieces_.empty())
            skipped += read(howMuch - skipped)->size();
        return skipped;
    }

private:
    std::deque<DataIO::Slice *> pieces_;
    UInt64 offset_ = 0;
};

/// A source of such pieces for who takes it over.
inline Templates::SharedPtr<DataIO::SliceSource> pieceSource(CountingBlocks & blocks, std::vector<Bytes> const & pieces)
{
    return Templates::SharedPtr<DataIO::SliceSource>(new PieceSource(blocks, pieces));
}

/// `bytes` in pieces of up to `longest` bytes, some of them empty.
template <class Random>
std::vector<Bytes> cutAtRandom(Bytes const & bytes, UInt64 longest, Random & random)
{
    std::vector<Bytes> pieces;
    for (auto at = bytes.begin(); at != bytes.end();)
    {
        auto const size = std::min(static_cast<std::ptrdiff_t>(random() % (longest + 1)), bytes.end() - at);
        pieces.emplace_back(at, at + size);
        at += size;
    }
    return pieces;
}

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
