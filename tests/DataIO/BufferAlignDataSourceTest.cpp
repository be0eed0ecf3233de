#include "DataIO/BufferAlignDataSource.h"

#include "support/BytesSource.h"
#include "support/Failure.h"

#include <random>

namespace Vantry { namespace Tests {

using DataIO::BufferAlignDataSource;

namespace {

// Tells whether it was always read from aligned positions.
class WatchedSource : public BytesSource
{
public:
    WatchedSource(Bytes const & bytes, UInt64 alignment, UInt64 mostAtOnce) :
        BytesSource(bytes, mostAtOnce), alignment_(alignment)
    {
    }

    bool aligned() const { return aligned_; }

    UInt64 read(unsigned char * destination, UInt64 howMuch) override
    {
        aligned_ = aligned_ && absoluteOffset() % alignment_ == 0;
        return BytesSource::read(destination, howMuch);
    }

private:
    UInt64 alignment_;
    bool aligned_ = true;
};

}

TEST(BufferAlignDataSource, ReadsLikeItsSource)
{
    std::tuple<unsigned int, unsigned int, unsigned int, bool> const CASES[] = {
        {1, 0, 1000, true},   {1, 7, 1000, true},    {16, 15, 1000, false}, {16, 16, 1000, true},
        {16, 64, 1000, true}, {10, 23, 1000, false}, {16, 64, 5, false},
    };

    std::mt19937 random(512);
    auto upTo = [&](UInt64 most)
    {
        return random() % (most + 1);
    };

    for (auto const & [alignment, bufferSize, mostAtOnce, alignedOnly] : CASES)
    {
        SCOPED_TRACE(testing::Message() << alignment << ", " << bufferSize << ", " << mostAtOnce);
        for (int round = 0; round < 20; ++round)
        {
            Bytes const bytes = counting(upTo(300));
            WatchedSource source(bytes, alignment, mostAtOnce);
            BufferAlignDataSource reader(source, alignment, bufferSize);
            UInt64 position = 0;

            for (int step = 0; step < 200; ++step)
            {
                UInt64 const n = upTo(19) == 0 ? ~UInt64(0) : upTo(100);
                UInt64 const most = std::min(n, bytes.size() - position);
                switch (upTo(3))
                {
                case 0:
                case 1:
                {
                    Bytes got(bytes.size() + 100);
                    ASSERT_EQ(reader.read(got.data(), std::min<UInt64>(n, got.size())), most);
                    ASSERT_TRUE(std::equal(got.begin(), got.begin() + most, bytes.begin() + position));
                    position += most;
                    break;
                }
                case 2:
                    ASSERT_EQ(reader.skip(n), most);
                    position += most;
                    break;
                default:
                    position = std::min<UInt64>(upTo(2) == 0 ? n : position - std::min(n / 4, position), bytes.size());
                    ASSERT_EQ(reader.seek(position == bytes.size() ? n | 512 : position), position);
                }
                ASSERT_EQ(reader.absoluteOffset(), position);
                ASSERT_EQ(reader.remaining(), bytes.size() - position);
                ASSERT_EQ(reader.endOfStream(), position == bytes.size());
            }
            reader.discard();
            EXPECT_TRUE(reader.endOfStream());
            EXPECT_TRUE(source.aligned() || !alignedOnly);
        }
    }
}

TEST(BufferAlignDataSource, ChecksItsSizes)
{
    WatchedSource source(counting(10), 1, 1000);
    EXPECT_FAILURE(InvalidValue, "align_ > 0: Alignment must be higher than zero", BufferAlignDataSource(source, 0, 0));
    EXPECT_FAILURE(InvalidValue, "align_ == 1: Alignment must be one if no buffer.",
                   BufferAlignDataSource(source, 2, 0));
    EXPECT_FAILURE(InvalidValue, "align_ - 1 <= bufferSize: Alignment size must be smaller than buffer size.",
                   BufferAlignDataSource(source, 512, 510));
    EXPECT_EQ(BufferAlignDataSource(source, 512, 511).remaining(), 10u);
}

}}
