#include "DataIO/SliceReader.h"

#include "support/Failure.h"
#include "support/Slices.h"

namespace Vantry { namespace Tests {

using DataIO::Slice;
using DataIO::SliceReader;
using DataIO::SliceSource;
using Templates::auto_ptr;
using Templates::SharedPtr;

TEST(SliceReader, CopiesOnlyAcrossBlocks)
{
    CountingBlocks blocks;
    SliceReader reader(pieceSource(blocks, {counting(4), counting(100, 4)}));

    EXPECT_EQ(bytesOf(*reader.read(10)), counting(10));
    EXPECT_EQ(blocks.made(), 3) << "a block for the joined bytes";

    auto_ptr<Slice> const slice = reader.read(20);
    auto_ptr<Slice> const next = reader.nextSlice(30);
    EXPECT_EQ(next->begin(), slice->end());
    reader.unget(auto_ptr<Slice>(new Slice(*next)));
    reader.unget(auto_ptr<Slice>(new Slice(*slice)));
    EXPECT_EQ(reader.cachedSize(), 50u);
    EXPECT_EQ(reader.read(50)->begin(), slice->begin()) << "what was cut lies together still";
    EXPECT_EQ(blocks.made(), 3);

    // A claim that the stream can't fulfil costs no memory.
    EXPECT_EQ(reader.read(UInt64(1) << 60)->size(), 44u);
    EXPECT_EQ(reader.read(0)->size(), 0u);
}

TEST(SliceReader, LeavesWhatIsTooShort)
{
    CountingBlocks blocks;
    SliceReader reader(pieceSource(blocks, {counting(4), counting(2, 4)}));

    EXPECT_FAILURE(NotEnoughData, "Not enough data to read from the source", reader.readAligned(10));
    EXPECT_EQ(reader.absoluteOffset(), 0u);
    EXPECT_EQ(bytesOf(*reader.read(6)), counting(6));
    EXPECT_FAILURE(NotEnoughData, "!this -> eof (): Not enough data to read from the source", reader.readAligned(1));
    EXPECT_EQ(reader.readAligned(0)->size(), 0u);
}

// Such a source mustn't be asked when it has ended.
TEST(SliceReader, StandsWhereItWasWhenTheMediumFails)
{
    class Failing : public PieceSource
    {
    public:
        using PieceSource::PieceSource;

        auto_ptr<Slice> read(UInt64 howMuch) override
        {
            if (PieceSource::endOfStream())
                throw Exceptions::IOError("bad sector", __FILE__, __LINE__);
            return PieceSource::read(howMuch);
        }

        bool endOfStream() const override { return false; }
    };

    CountingBlocks blocks;
    SliceReader reader(SharedPtr<SliceSource>(new Failing(blocks, {counting(4), counting(4, 4)})));
    EXPECT_FAILURE(IOError, "bad sector", reader.read(10));
    EXPECT_EQ(reader.absoluteOffset(), 0u);
    EXPECT_EQ(bytesOf(*reader.read(8)), counting(8));
}

}}
