// What `vantry info` tells of real files, beside what two other programs tell.
// Where they differ, info-peers.txt says so, and why.

#include "FileReport.h"
#include "Schema/Tables.h"
#include "support/BytesSource.h"
#include "support/FileBytes.h"
#include "support/Samples.h"

#include <cstdio>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>

namespace Vantry { namespace Tests { namespace {

using Json = nlohmann::ordered_json;

/// What programs can be compared by, "-" where one doesn't tell.
using Facts = std::map<std::string, std::string>;

std::string rounded(double value, int digits)
{
    char text[64];
    std::snprintf(text, sizeof(text), "%.*f", digits, value);
    return value > 0 ? text : "-";
}

/// The quotient of a text such as "30000/1001" or "25".
double rateOf(Json const & text)
{
    if (!text.is_string())
        return 0;
    std::string const rate = text;
    std::size_t const slash = rate.find('/');
    double const divisor = slash == std::string::npos ? 1 : std::stod(rate.substr(slash + 1));
    return divisor == 0 ? 0 : std::stod(rate) / divisor;
}

Facts factsOf(std::map<std::string, int> const & tracks, double pictureRate, double seconds, Json const & start)
{
    Facts facts;
    for (char const * kind : {"picture", "sound", "data"})
        facts[kind] = std::to_string(tracks.count(kind) ? tracks.at(kind) : 0);
    facts["rate"] = rounded(pictureRate, 2);
    facts["seconds"] = rounded(seconds, 2);
    facts["start"] = start.is_string() ? start.get<std::string>() : "-";
    return facts;
}

Facts ourFacts(Bytes const & file)
{
    BytesSource source(file);
    Json const report = *Application::reportOf("file", source, Schema::builtInTables());
    std::map<std::string, int> tracks;
    double pictureRate = 0;
    double seconds = 0;
    Json start;
    for (Json const & package : report["packages"])
        for (Json const & track : package["tracks"])
        {
            if (start.is_null())
                start = track["start_timecode"];
            double const rate = rateOf(track["edit_rate"]);
            if (package != report["packages"][0])
                continue;
            ++tracks[track["kind"]];
            pictureRate = track["kind"] == "picture" ? rate : pictureRate;
            if (rate > 0 && track["duration"].is_number())
                seconds = std::max(seconds, track["duration"].get<double>() / rate);
        }
    return factsOf(tracks, pictureRate, seconds, start);
}

/// What a command writes, as JSON; null when there is no such command.
Json outputOf(std::string const & command)
{
    std::unique_ptr<std::FILE, int (*)(std::FILE *)> const pipe(popen((command + " 2>/dev/null").c_str(), "r"), pclose);
    std::string text;
    for (int c = std::fgetc(pipe.get()); c != EOF; c = std::fgetc(pipe.get()))
        text.push_back(static_cast<char>(c));
    return Json::parse(text, nullptr, false);
}

Json valueAt(Json const & value, char const * pointer)
{
    Json::json_pointer const place(pointer);
    return value.contains(place) ? value[place] : Json();
}

Facts ffprobeFacts(std::string const & path)
{
    Json const told = outputOf("ffprobe -of json -show_streams -show_format '" + path + "'");
    std::map<std::string, std::string> const KINDS = {{"video", "picture"}, {"audio", "sound"}, {"subtitle", "data"}};
    std::map<std::string, int> tracks;
    double pictureRate = 0;
    Json start = valueAt(told, "/format/tags/timecode");
    for (Json const & stream : valueAt(told, "/streams"))
    {
        auto const kind = KINDS.find(stream.value("codec_type", ""));
        ++tracks[kind != KINDS.end() ? kind->second : "other"];
        if (stream.value("codec_type", "") == "video")
            pictureRate = rateOf(stream["r_frame_rate"]);
        if (start.is_null())
            start = valueAt(stream, "/tags/timecode");
    }
    return factsOf(tracks, pictureRate, rateOf(valueAt(told, "/format/duration")), start);
}

Facts mediainfoFacts(std::string const & path)
{
    Json const told = outputOf("mediainfo --Output=JSON '" + path + "'");
    std::map<std::string, std::string> const KINDS = {{"Video", "picture"}, {"Audio", "sound"}, {"Text", "data"}};
    std::map<std::string, int> tracks;
    double pictureRate = 0;
    double seconds = 0;
    Json start;
    for (Json const & track : valueAt(told, "/media/track"))
    {
        std::string const type = track.value("@type", "");
        auto const kind = KINDS.find(type);
        ++tracks[kind != KINDS.end() ? kind->second : "other"];
        if (type == "Video")
            pictureRate = rateOf(valueAt(track, "/FrameRate"));
        if (type == "General")
            seconds = rateOf(valueAt(track, "/Duration"));
        if (type == "Other" && start.is_null())
            start = valueAt(track, "/TimeCode_FirstFrame");
    }
    return factsOf(tracks, pictureRate, seconds, start);
}

/// The golden file: "FILE PEER FACT OURS THEIRS", the reason behind a "#".
std::set<std::string> knownDifferences()
{
    std::ifstream file(VANTRY_SOURCE_TREE "/tests/applications/vantry/info-peers.txt");
    std::set<std::string> known;
    for (std::string line; std::getline(file, line);)
    {
        line.erase(std::min(line.find('#'), line.size()));
        line.erase(line.find_last_not_of(' ') + 1);
        if (!line.empty())
            known.insert(line);
    }
    return known;
}

void compareAllSamples(std::string const & peer, Facts (*factsOfPeer)(std::string const &))
{
    VANTRY_NEEDS_SAMPLES();
    if (std::system(("command -v " + peer + " >/dev/null").c_str()) != 0)
        GTEST_SKIP() << "there is no " << peer;

    std::set<std::string> found;
    for (auto const & path : samples())
    {
        Bytes const file = readFile(path);
        if (file.size() < 100) // is no MXF file
            continue;
        Facts theirs = factsOfPeer(path.string());
        for (auto const & [fact, ours] : ourFacts(file))
            if (ours != theirs[fact])
                found.insert(path.stem().string().substr(0, 4) + ' ' + peer + ' ' + fact + ' ' + ours + ' ' +
                             theirs[fact]);
    }

    std::set<std::string> known;
    for (std::string const & line : knownDifferences())
        if (line.find(' ' + peer + ' ') != std::string::npos)
            known.insert(line);
    EXPECT_EQ(found, known);
}

TEST(InfoPeers, AgreeWithFFprobe)
{
    compareAllSamples("ffprobe", ffprobeFacts);
}

TEST(InfoPeers, AgreeWithMediainfo)
{
    compareAllSamples("mediainfo", mediainfoFacts);
}

}}}
