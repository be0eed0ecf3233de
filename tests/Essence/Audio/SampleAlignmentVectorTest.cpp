#include "Essence/Audio/SampleAlignmentVector.h"

#include "support/Failure.h"

#include <numeric>

namespace Vantry { namespace Tests {

using Rate = Templates::Rational<int>;

Templates::vector<unsigned char> alignmentOf(unsigned int samplingRate, Rate const & editRate)
{
    Templates::vector<unsigned char> alignment;
    Essence::Audio::SampleAlignmentVector::fillSampleAlignmentVector(alignment, samplingRate, editRate);
    return alignment;
}

TEST(SampleAlignmentVector, CyclesHoldExactlyTheSamplesOfTheirTime)
{
    struct Case
    {
        unsigned int samplingRate;
        Rate editRate;
        unsigned int ceiling, cycle, samples;
        int drift;
    };

    Case const cases[] = {
        {48000, Rate(30000, 1001), 1602, 5, 8008, 1},     {48000, Rate(60000, 1001), 801, 10, 8008, 1},
        {44100, Rate(30000, 1001), 1472, 100, 147147, 2}, {22050, Rate(30000, 1001), 736, 200, 147147, 1},
        {8000, Rate(60000, 2002), 267, 15, 4004, 1},
    };
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.samplingRate);
        auto const alignment = alignmentOf(c.samplingRate, c.editRate);
        ASSERT_EQ(alignment.size(), c.cycle);
        EXPECT_EQ(c.cycle * c.ceiling - std::accumulate(alignment.begin(), alignment.end(), 0u), c.samples);

        // At no time is the sound more than so many half samples away from
        // the picture.
        Int64 samples = 0;
        for (std::size_t i = 0; i < alignment.size(); ++i)
        {
            samples += c.ceiling - alignment[i];
            Int64 const wanted = Int64(i + 1) * c.samplingRate * c.editRate.denominator();
            EXPECT_LE(2 * std::abs(samples * c.editRate.numerator() - wanted), c.drift * c.editRate.numerator()) << i;
        }
    }
}

TEST(SampleAlignmentVector, KnowsSomeRates)
{
    using Alignment = Templates::vector<unsigned char>;
    EXPECT_EQ(alignmentOf(48000, Rate(30000, 1001)), (Alignment{0, 1, 0, 1, 0}));
    EXPECT_EQ(alignmentOf(48000, Rate(60000, 1001)), (Alignment{0, 0, 1, 0, 0, 0, 0, 1, 0, 0}));
    EXPECT_EQ(alignmentOf(48000, 25), Alignment{0});
    EXPECT_EQ(alignmentOf(44100, Rate(24000, 1001)), Alignment{0});

    EXPECT_FAILURE(NotImplemented, "30000/1001 Edit Rate supported only for 48KHz, 44.1KHz, 22.05KHz and 8KHz.",
                   alignmentOf(96000, Rate(30000, 1001)));
    EXPECT_FAILURE(NotImplemented, "60000/1001 Edit Rate only supported for 48KHz.",
                   alignmentOf(44100, Rate(60000, 1001)));
}

}}
