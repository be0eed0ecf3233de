#include "DataIO/BufferSliceSource.h"

#include "DataIO/SliceSourceTee.h"
#include "support/Failure.h"
#include "support/Slices.h"

namespace Vantry { namespace Tests {

using DataIO::BufferSliceSource;
using DataIO::Slice;
using DataIO::SliceSourceTee;
using Templates::auto_ptr;

TEST(BufferSliceSource, HandsSlicesOnAsTheyCame)
{
    CountingBlocks blocks;
    BufferSliceSource buffer;
    EXPECT_EQ(buffer.read(5)->size(), 0u) << "nothing yet";
    EXPECT_FALSE(buffer.endOfStream());

    auto_ptr<Slice> whole = blocks.slice(counting(10));
    auto_ptr<Slice> tail = whole->splice(whole->begin() + 4);
    buffer.write(whole);
    buffer.write(tail);
    buffer.write(auto_ptr<Slice>(new Slice));
    buffer.write(blocks.slice(counting(6, 10)));
    buffer.write(blocks.slice(counting(3, 16)));
    EXPECT_EQ(buffer.accessible(), 19u);

    EXPECT_EQ(bytesOf(*buffer.read(1)), counting(10)) << "neighbours come as one";
    EXPECT_EQ(buffer.skip(4), 4u);
    EXPECT_EQ(buffer.absoluteOffset(), 14u);
    EXPECT_EQ(bytesOf(*buffer.read(1)), counting(2, 14));

    buffer.close();
    EXPECT_FALSE(buffer.endOfStream());
    EXPECT_EQ(buffer.skip(100), 3u);
    EXPECT_EQ(buffer.absoluteOffset(), 19u);
    EXPECT_TRUE(buffer.endOfStream());
    EXPECT_EQ(blocks.alive(), 0);
    EXPECT_FAILURE(IOError, "this -> closed () == false: BufferSliceSource already closed.",
                   buffer.write(blocks.slice(counting(1))));
    EXPECT_FAILURE(IOError, "!impl_ -> closed_: BufferSliceSource::read: Source closed and empty!", buffer.read(1));
}

TEST(SliceSourceTee, ShowsTheSinkWhatPasses)
{
    CountingBlocks blocks;
    std::vector<Bytes> const pieces = {counting(10), {}, counting(10, 10), counting(5, 20)};
    int const noCopies = static_cast<int>(pieces.size());

    BufferSliceSource sink;
    SliceSourceTee tee(pieceSource(blocks, pieces), &sink);
    EXPECT_EQ(bytesOf(*tee.read(4)), counting(4));
    EXPECT_EQ(tee.skip(14), 14u);
    EXPECT_EQ(tee.absoluteOffset(), 18u);
    EXPECT_FALSE(tee.endOfStream());
    EXPECT_EQ(tee.skip(100), 7u);
    EXPECT_TRUE(tee.endOfStream());

    sink.close();
    DataIO::Chain seen;
    while (!sink.endOfStream())
        seen.push_back(sink.read(1));
    EXPECT_EQ(bytesOf(seen), counting(25));
    EXPECT_EQ(blocks.made(), noCopies);
}

}}
