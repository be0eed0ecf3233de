// What `vantry info` tells of real files that are cut or changed: never a crash,
// and never more edit units the shorter a file is.

#include "FileReport.h"
#include "Schema/Tables.h"
#include "support/BytesSource.h"
#include "support/FileBytes.h"
#include "support/Samples.h"

#include <map>
#include <nlohmann/json.hpp>
#include <random>
#include <set>

namespace Vantry { namespace Tests { namespace {

char const * const FILES[] = {"F001_sample.mxf", "F081_AUDIO.null_terminated_strings.mxf", "F188_video.mxf",
                              "F211_fixture.mxf", "F255_70c921db-4257-4858-aab1-8dbdd0fa039a.mxf"};

/// With VANTRY_ALL_CASES set, all cases are tried; else some of them.
std::size_t step()
{
    return std::getenv("VANTRY_ALL_CASES") != nullptr ? 1 : 50;
}

class InfoDamage : public testing::TestWithParam<char const *>
{
protected:
    void SetUp() override
    {
        VANTRY_NEEDS_SAMPLES();
        whole_ = readFile(sampleFolder() / GetParam());
    }

    /// Readable edit units by body SID, as far as they can be told.
    std::map<unsigned int, UInt64> readable(Bytes const & file) const
    {
        BytesSource source(file);
        auto const report = Application::reportOf("file", source, Schema::builtInTables());
        std::map<unsigned int, UInt64> units;
        if (report)
            for (auto const & container : (*report)["containers"])
                if (!container["readable_edit_units"].is_null())
                    units[container["body_sid"]] = container["readable_edit_units"];
        return units;
    }

    Bytes whole_;
    std::mt19937 random_{1};
};

TEST_P(InfoDamage, NeverMakesMoreOfLess)
{
    std::size_t const EDGE = std::min<std::size_t>(8192, whole_.size() / 2);
    std::set<std::size_t, std::greater<>> sizes;
    for (std::size_t i = 0; i < EDGE; i += step())
        sizes.insert({i, whole_.size() - i});
    for (std::size_t i = 0; i < 500; i += step())
        sizes.insert(std::uniform_int_distribution<std::size_t>(EDGE, whole_.size() - EDGE)(random_));

    std::map<unsigned int, UInt64> last = readable(whole_);
    EXPECT_FALSE(last.empty());
    for (std::size_t size : sizes)
        for (auto const & [bodySID, units] : readable(whole_.first(size)))
        {
            auto const before = last.find(bodySID);
            EXPECT_TRUE(before == last.end() || units <= before->second)
                << units << " edit units of body SID " << bodySID << " in the first " << size << " bytes";
            last[bodySID] = units;
        }
}

TEST_P(InfoDamage, SurvivesWrongBits)
{
    for (std::size_t i = 0; i < 2000; i += step())
    {
        // Half of them where structure is dense.
        std::size_t const end = i / step() % 2 == 0 ? whole_.size() : std::min<std::size_t>(16384, whole_.size());
        std::size_t const at = std::uniform_int_distribution<std::size_t>(0, end - 1)(random_);
        Bytes changed = whole_;
        changed[at] ^= static_cast<unsigned char>(1 << random_() % 8);
        EXPECT_NO_THROW(readable(changed)) << "a bit at offset " << at;
    }
}

INSTANTIATE_TEST_SUITE_P(RealFiles, InfoDamage, testing::ValuesIn(FILES));

}}}
