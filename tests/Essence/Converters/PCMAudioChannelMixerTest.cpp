#include "Essence/Converters/PCMAudioChannelMixer.h"

#include "support/Failure.h"
#include "support/Slices.h"

namespace Vantry { namespace Tests {

using Essence::Converters::PCMAudioChannelMixer;

class PCMAudioChannelMixerTest : public testing::Test
{
protected:
    // Three samples a second, so that seconds are soon over.
    void add(std::vector<Bytes> const & pieces, unsigned short blockAlign)
    {
        mixer_.addSource(pieceSource(blocks_, pieces), 16, 16, blockAlign / 2, 3, blockAlign);
    }

    Bytes readAll()
    {
        Bytes all;
        while (!mixer_.endOfStream())
            all += bytesOf(*mixer_.read(1));
        EXPECT_EQ(mixer_.absoluteOffset(), all.size());
        EXPECT_EQ(mixer_.read(1).get(), nullptr);
        return all;
    }

    CountingBlocks blocks_;
    PCMAudioChannelMixer mixer_;
};

TEST_F(PCMAudioChannelMixerTest, InterleavesSourcesWhateverTheirSlices)
{
    add({counting(1, 0x10), counting(3, 0x11), counting(12, 0x14)}, 2);
    add({counting(10, 0x80), counting(22, 0x8A)}, 4);
    EXPECT_EQ(mixer_.size(), 2u);

    Bytes wanted;
    for (unsigned char i = 0; i < 8; ++i)
        wanted += counting(2, 0x10 + 2 * i) + counting(4, 0x80 + 4 * i);
    EXPECT_EQ(bytesOf(*mixer_.read(1)), wanted.first(2 * 3 * 6)) << "two sources, two seconds";
    EXPECT_FALSE(mixer_.endOfStream());
    EXPECT_EQ(bytesOf(*mixer_.read(1)), Bytes(wanted.begin() + 36, wanted.end()));
    EXPECT_TRUE(mixer_.endOfStream());
}

TEST_F(PCMAudioChannelMixerTest, EndsWithinTheSampleInWhichASourceEnds)
{
    add({counting(100)}, 2);
    add({hex("A0 A1 A2"), {}, hex("A3")}, 2);
    EXPECT_EQ(readAll(), hex("00 01 A0 A1 02 03 A2")) << "a source that gives nothing has ended";
}

TEST_F(PCMAudioChannelMixerTest, TakesSourcesThatGoWithTheFirst)
{
    EXPECT_FALSE(mixer_.endOfStream());
    add({counting(4)}, 2);
    auto const source = pieceSource(blocks_, {});
    EXPECT_FAILURE(OperationNotAllowed,
                   "(*firstSource) -> bitsPerSample () == sourceProvider -> bitsPerSample (): "
                   "Different bits per sample received",
                   mixer_.addSource(source, 24, 24, 1, 3, 3));
    EXPECT_FAILURE(OperationNotAllowed,
                   "(*firstSource) -> samplingFrequency () == sourceProvider -> samplingFrequency (): "
                   "Different sampling frequency received",
                   mixer_.addSource(source, 16, 16, 1, 4, 2));
    EXPECT_FAILURE(InvalidValue, "blockAlign != 0 && samplingFrequency != 0: A source without samples can't be mixed",
                   mixer_.addSource(source, 16, 16, 1, 3, 0));
    EXPECT_FAILURE(NotImplemented, "", mixer_.skip(1));
    EXPECT_EQ(mixer_.size(), 1u);
    EXPECT_EQ(readAll(), counting(4));
}

}}
