// What is in real files of many makers, how much there is of it, and what is
// wrong with them.
// info-samples.txt has it, reviewed by hand.

#include "FileReport.h"
#include "Schema/Tables.h"
#include "support/BytesSource.h"
#include "support/FileBytes.h"
#include "support/Samples.h"

#include <fmt/format.h>
#include <iterator>
#include <nlohmann/json.hpp>

namespace Vantry { namespace Tests { namespace {

using Json = nlohmann::ordered_json;

std::string linesOf(Bytes const & file)
{
    BytesSource source(file);
    auto const report = Application::reportOf("file", source, Schema::builtInTables());
    if (!report)
        return "  no MXF file\n";

    std::string lines;
    for (Json const & package : (*report)["packages"])
        for (Json const & track : package["tracks"])
            lines += fmt::format("  {} {}: {} of {} at {}, start {}\n", package["kind"].get<std::string>(),
                                 track["id"].dump(), track["kind"].dump(), track["duration"].dump(),
                                 track["edit_rate"].dump(), track["start_timecode"].dump());
    for (Json const & container : (*report)["containers"])
        lines += fmt::format("  body SID {}, {}: {} of {}, index {}\n", container["body_sid"].dump(),
                             container["wrapping"].get<std::string>(), container["readable_edit_units"].dump(),
                             container["duration"].dump(), container["index"].dump());
    for (Json const & warning : (*report)["warnings"])
        lines += "  " + warning.get<std::string>() + '\n';
    return lines;
}

TEST(InfoSamples, AreAsTheyWere)
{
    VANTRY_NEEDS_SAMPLES();
    std::string found;
    for (auto const & path : samples())
        found += path.stem().string().substr(0, 4) + '\n' + linesOf(readFile(path));

    std::ifstream file(VANTRY_SOURCE_TREE "/tests/applications/vantry/info-samples.txt");
    EXPECT_EQ(found, std::string(std::istreambuf_iterator<char>(file), {}));
}

}}}
