// Reads a stream by all the ways the slice readers have, in any order, and
// stops when they don't agree with the stream.
//
// Input: one byte for the size of a script, the script, and the stream. The
// script gives the sizes of the slices and then, in pairs, what to do and how
// much of it.

#include "DataIO/BitSliceReader.h"
#include "DataIO/BufferSliceSource.h"
#include "DataIO/Chain.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "DataIO/SyncResult.h"
#include "DataIO/SyncWordFinder.h"
#include "Exceptions/NotEnoughData.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

using namespace Vantry;
using DataIO::Chain;
using DataIO::Slice;
using Templates::auto_ptr;

UInt64 const MOST_BITS = 5000;

void check(bool holds)
{
    if (!holds)
        std::abort();
}

class Run
{
public:
    Run(unsigned char const * bytes, UInt64 size) : at_(bytes), end_(bytes + size) {}

    UInt64 size() const { return static_cast<UInt64>(end_ - at_); }
    unsigned char const * begin() const { return at_; }

    unsigned char next() { return at_ == end_ ? 0 : *at_++; }

    Run take(UInt64 size)
    {
        Run const taken(at_, std::min(size, this->size()));
        at_ = taken.end_;
        return taken;
    }

private:
    unsigned char const * at_;
    unsigned char const * end_;
};

// The stream in slices of their own blocks, four sizes over and over.
Templates::SharedPtr<DataIO::SliceSource> slicesOf(Run stream, Run & script)
{
    unsigned int const sizes[] = {script.next() % 64u + 1, script.next() % 8u + 1, script.next() + 1u, 3};
    auto_ptr<DataIO::BufferSliceSource> source(new DataIO::BufferSliceSource);
    for (unsigned int i = 0; stream.size() > 0; ++i)
    {
        Run const piece = stream.take(sizes[i % 4]);
        DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(piece.size());
        std::copy_n(piece.begin(), piece.size(), block.block()->data());
        source->write(auto_ptr<Slice>(new Slice(block.block(), 0, piece.size())));
    }
    source->close();
    return source;
}

// The reader, and where in the stream it should be.
class Session
{
public:
    Session(Run stream, Run & script) : stream_(stream), reader_(slicesOf(stream, script)) {}

    void step(unsigned int what, UInt64 howMuch)
    {
        UInt64 const rest = stream_.size() - position_;
        Chain got;
        switch (what % 10)
        {
        case 0:
            if (!reader_.endOfStream())
                got.push_back(reader_.nextSlice(howMuch));
            break;
        case 1:
            if (!reader_.endOfStream())
                got.push_back(reader_.nextSliceAligned(howMuch, 1 + what / 10));
            break;
        case 2:
            got.push_back(reader_.read(howMuch));
            check(got.data_size() == std::min(howMuch, rest));
            break;
        case 3:
            reader_.read(howMuch, got);
            check(got.data_size() == std::min(howMuch, rest));
            break;
        case 4:
            try
            {
                got.push_back(reader_.readAligned(howMuch));
                check(got.data_size() == howMuch);
            }
            catch (Exceptions::NotEnoughData const &)
            {
                check(howMuch > rest);
            }
            break;
        case 5:
            check(reader_.skip(howMuch) == std::min(howMuch, rest));
            position_ += std::min(howMuch, rest);
            break;
        case 6:
            find(howMuch, what / 10);
            break;
        default:
            bits(static_cast<unsigned int>(std::min(howMuch, MOST_BITS)), what % 2 == 0);
        }

        take(got);
        if (what >= 128)
        {
            position_ -= got.data_size();
            reader_.unget(got);
        }
        check(reader_.absoluteOffset() == position_);
        check(reader_.endOfStream() == (position_ == stream_.size()));
    }

private:
    // What was read is what the stream has here.
    void take(Chain const & chain)
    {
        for (Slice const & slice : chain)
        {
            check(slice.size() <= stream_.size() - position_);
            check(std::equal(slice.begin(), slice.end(), stream_.begin() + position_));
            position_ += slice.size();
        }
    }

    void find(UInt64 maximum, unsigned int variety)
    {
        UInt32 const mask = variety % 2 == 0 ? 0x00FFFFFF : 0xF0FF00FF;
        UInt32 const word = (variety % 4 < 2 ? 0x47010000 : 0x10FF0000) & mask;
        DataIO::SyncResult result;
        DataIO::SyncWordFinder(reader_, word, mask).find(maximum, result);
        take(result.skipped);
        if (result.found)
        {
            auto_ptr<Slice> slice = reader_.readAligned(4);
            unsigned char const * const b = slice->begin();
            UInt32 const there = b[0] | b[1] << 8 | b[2] << 16 | UInt32(b[3]) << 24;
            check(there == result.word && (there & mask) == word);
            reader_.unget(slice);
        }
    }

    void bits(unsigned int count, bool skipped)
    {
        UInt64 const needed = (count + 7) / 8;
        try
        {
            std::vector<unsigned char> field(needed);
            if (skipped)
                reader_.skipBits(count);
            else
                reader_.readBits(count, field.data());
            for (UInt64 i = 0; !skipped && i < count / 8; ++i)
                check(field[i] == stream_.begin()[position_ + i]);
        }
        catch (Exceptions::NotEnoughData const &)
        {
            check(needed > stream_.size() - position_);
        }

        Chain used;
        reader_.readCache(used);
        take(used);
    }

    Run stream_;
    UInt64 position_ = 0;
    DataIO::BitSliceReader reader_;
};

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    Run stream(data, size);
    Run script = stream.take(stream.next());

    Session session(stream, script);
    while (script.size() > 0)
    {
        unsigned int const what = script.next();
        UInt64 const many = script.next();
        session.step(what, many == 0xFF ? 0xFFFFFFFF : many);
    }
    return 0;
}
