#include "GenericContainer/RP224UniversalLabels.h"

#include "Types/UniversalLabel.h"
#include "support/Bytes.h"
#include "support/Failure.h"

#include <cctype>
#include <map>
#include <utility>

namespace Vantry { namespace GenericContainer { namespace {

using Labels = RP224UniversalLabels;

Types::UniversalLabel label(std::string const & bytes)
{
    return Types::UniversalLabel(Tests::hex(bytes).data());
}

std::pair<int, int> infoOf(std::string const & bytes)
{
    Labels::EssenceContainerInfo const info = Labels::essenceContainerInfo(label(bytes));
    return {info.mapping, info.wrapKind};
}

// A label of the Generic Container with these last three bytes.
std::string container(std::string const & lastBytes)
{
    return "06 0E 2B 34 04 01 01 0A 0D 01 03 01 02 " + lastBytes;
}

TEST(RP224UniversalLabels, AreKnownByTheirMapping)
{
    std::map<std::string, std::pair<int, int>> const expected = {
        {"01 7F 05", {5, 0}},  {"02 7F 01", {6, 0}},  {"02 7F 02", {6, 1}},  {"04 60 01", {7, 0}},
        {"04 60 02", {7, 1}},  {"04 60 7F", {7, 2}},  {"05 00 01", {10, 0}}, {"05 00 02", {10, 1}},
        {"05 00 00", {10, 2}}, {"06 01 7F", {4, 0}},  {"06 02 00", {4, 1}},  {"06 03 00", {1, 0}},
        {"06 04 00", {1, 1}},  {"06 08 00", {4, 2}},  {"06 09 00", {1, 2}},  {"08 60 01", {8, 2}},
        {"08 60 02", {8, 1}},  {"09 60 02", {9, 1}},  {"09 60 03", {9, 2}},  {"0A 01 00", {11, 0}},
        {"0A 02 00", {11, 1}}, {"0A 03 00", {11, 2}}, {"0C 01 00", {12, 0}}, {"0C 02 00", {12, 1}},
        {"0F 60 01", {3, 2}},  {"0F 60 02", {3, 1}},  {"10 60 02", {2, 1}},  {"10 60 01", {2, 2}},
        {"03 00 00", {0, 2}},  {"7F 01 00", {0, 2}},
    };
    for (auto const & [bytes, info] : expected)
        EXPECT_EQ(infoOf(container(bytes)), info) << bytes;

    EXPECT_EQ(infoOf("06 0E 2B 34 04 01 01 00 04 01 02 02 01 AA BB 01"), std::make_pair(13, 0));
    EXPECT_EQ(infoOf("06 0E 2B 34 04 01 01 00 04 01 02 02 01 00 00 02"), std::make_pair(13, 1));
    EXPECT_EQ(infoOf("06 0E 2B 34 04 01 01 00 04 01 02 02 01 00 00 03"), std::make_pair(13, 2));
    EXPECT_EQ(infoOf("06 0E 2B 34 04 01 02 0A 0D 01 03 01 02 01 00 00"), std::make_pair(0, 2));
}

TEST(RP224UniversalLabels, OfSomeMappingsHaveToTellTheWrapping)
{
    std::map<std::string, std::string> const expected = {
        {"02 01 03", "Invalid wrap kind value 3, in the Essence Container UL, "},
        {"06 05 01", "Invalid value, byte 15, 5, in the AES/BWF Wave Essence Container UL, "},
        {"0A 04 01", "Invalid wrap kind value 4, in the A-Law Essence Container UL, "},
        {"0C 00 01", "Invalid wrap kind value 0, in the JPEG2000 Essence Container UL, "},
    };
    for (auto const & [bytes, text] : expected)
    {
        std::string dotted = "06.0e.2b.34.04.01.01.0a.0d.01.03.01.02." + bytes;
        for (char & c : dotted)
            c = c == ' ' ? '.' : static_cast<char>(std::tolower(c));
        EXPECT_FAILURE(InvalidValue, (text + dotted).c_str(), Labels::essenceContainerInfo(label(container(bytes))));
    }
}

}}}
