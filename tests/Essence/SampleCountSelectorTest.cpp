#include "Essence/SampleCountSelector.h"

#include "support/Failure.h"

#include <vector>

namespace Vantry { namespace Tests {

using Essence::SampleCountSelector;
using Rate = Templates::Rational<int>;

TEST(SampleCountSelector, SpreadsTheSamples)
{
    std::tuple<Rate, Rate, std::vector<int>, int, std::vector<unsigned>> const cases[] = {
        {48000, 25, {1920, 1920, 1920}, 1920, {0, 0, 0}},
        {44100, 24, {1837, 1838, 1837, 1838}, 1838, {2, 1, 2, 1}},
        {48000, Rate(30000, 1001), {1601, 1602, 1601, 1602, 1602, 1601}, 1602, {2, 3, 4, 5, 1, 2}},
        {48000, Rate(60000, 1001), {800, 801, 801, 801, 801, 800}, 801, {2, 3, 4, 5, 1, 2}},
    };
    for (auto const & [sampling, edit, counts, maximum, sequence] : cases)
    {
        SampleCountSelector selector(sampling, edit);
        EXPECT_EQ(selector.isVBE(), sequence[0] != 0);
        EXPECT_EQ(selector.maximumSampleCount(), maximum);
        for (std::size_t i = 0; i < counts.size(); ++i, selector.nextElement())
        {
            EXPECT_EQ(selector.currentSampleCount(), counts[i]) << i;
            EXPECT_EQ(selector.sequenceCount(), sequence[i]) << i;
        }
    }

    EXPECT_FAILURE(InvalidValue, "denominator != 0: Division by 0.", SampleCountSelector(48000, 0));
}

}}
