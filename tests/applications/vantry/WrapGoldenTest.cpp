// Files that the program makes of material made here, byte by byte, and cut
// wherever that may be.

#include "support/AVIFile.h"
#include "support/Bench.h"
#include "support/Codestream.h"
#include "support/DVFrame.h"
#include "support/MPEGVideo.h"

#include <iomanip>
#include <sstream>

namespace Vantry { namespace Tests {

namespace fs = std::filesystem;

namespace {

/// FNV-1a.
std::string checksumOf(Bytes const & bytes)
{
    UInt64 sum = 0xCBF29CE484222325;
    for (unsigned char const byte : bytes)
        sum = (sum ^ byte) * 0x100000001B3;
    std::ostringstream text;
    text << std::hex << std::setw(16) << std::setfill('0') << sum;
    return text.str();
}

Bytes sound(std::size_t samples)
{
    Bytes bytes;
    for (std::size_t i = 0; i < 4 * samples; ++i)
        bytes.push_back(static_cast<unsigned char>(i * i >> 5));
    return bytes;
}

void makeInputs(Bench const & bench)
{
    bench.scratch.write("tone.wav", waveFile(waveChunk("fmt ", PCM_FORMAT) + waveChunk("data", sound(11111))));

    Bytes video;
    for (unsigned int group = 0; group < 3; ++group)
        video += SEQUENCE + (group == 0 ? CLOSED : OPEN) + picture(1, 2) + picture(3, 0) + picture(3, 1) +
                 picture(2, 3) + repeated(2000 + 700 * group, 0xAA);
    bench.scratch.write("groups.m2v", video);

    Bytes const frames[] = {dvFrame(144000, 0xBF, 0, 0, 1), dvFrame(144000, 0xBF, 0, 0, 2)};
    bench.scratch.write("frames.dv", frames[0] + frames[1]);
    Bytes chunks;
    for (Bytes const & frame : frames)
        chunks += waveChunk("00dc", frame) + waveChunk("01wb", sound(1920));
    bench.scratch.write("both.avi",
                        aviFile(aviStream("vids", repeated(40, 0)) + aviStream("auds", PCM_FORMAT), chunks));

    fs::create_directory(bench.scratch.path() / "pictures");
    for (unsigned char i = 0; i < 5; ++i)
        bench.scratch.write("pictures/" + std::to_string(i), codestream(64, 0, 0, i));

    bench.scratch.write("packets", hex("0001 000B 01 04 0005 00000008 00000001 6161 02 0102 000000 0000") +
                                       hex("0001 000B 01 04 0005 00000008 00000001 6161 02 0304 000000"));
}

std::pair<char const *, char const *> const GOLDENS[] = {
    {"groups.m2v tone.wav packets", "6eb83d0c2cc5b4e2"},
    {"groups.m2v tone.wav tone.wav --partition-every 5 --index-in body --kag 1", "c93f7552d476b7f6"},
    {"pictures tone.wav --edit-rate 30000/1001 --no-rip", "55a5571bd8f1d92c"},
    {"tone.wav --index-in header --name tone --timecode 10:00:00:00", "8ad4a512f161abe0"},
    {"tone.wav --wrapping clip", "485548abc3685498"},
    {"groups.m2v --wrapping clip --kag 4096", "c90acba15a56d082"},
    {"both.avi --partition-every 1", "6a86bbb37b43a376"},
    {"frames.dv --pattern opatom", "703bc87685905e2c"},
};

/// Where the values of a track's packets are.
using Values = std::vector<std::pair<std::size_t, std::size_t>>;

/// Of each track, in the order in which they come first.
std::vector<Values> essenceIn(Bench const & bench, std::string const & file)
{
    std::vector<std::string> keys;
    std::vector<Values> tracks;
    std::istringstream lines(bench.run("dump --json " + file));
    for (std::string line; std::getline(lines, line);)
    {
        Json const packet = Json::parse(line);
        std::string const key = packet.value("key", "");
        if (key.find("0d.01.03.01") != 24)
            continue;
        auto const track = std::size_t(std::find(keys.begin(), keys.end(), key) - keys.begin());
        if (track == keys.size())
        {
            keys.push_back(key);
            tracks.emplace_back();
        }
        std::size_t const start = packet["offset"].get<std::size_t>() + 16 + packet["ber"].get<std::size_t>();
        tracks[track].emplace_back(start, start + packet["length"].get<std::size_t>());
    }
    return tracks;
}

std::size_t elementsAhead(Values const & values, std::size_t place)
{
    return std::size_t(
        std::count_if(values.begin(), values.end(), [&](auto const & value) { return value.second <= place; }));
}

/// Bytes of a track that lie ahead of a place: whole elements, but any part of
/// a clip.
std::size_t bytesAhead(Values const & values, std::size_t place)
{
    std::size_t bytes = 0;
    for (auto const & [start, end] : values)
        bytes += end <= place ? end - start : values.size() == 1 && start < place ? place - start : 0;
    return bytes;
}

}

TEST(WrapGolden, TheSameInputGivesTheseBytes)
{
    Bench const bench;
    makeInputs(bench);
    for (auto const & [arguments, checksum] : GOLDENS)
    {
        bench.run("wrap --force --deterministic -o w.mxf " + std::string(arguments));
        EXPECT_EQ(checksumOf(bench.bytes("w.mxf")), checksum) << arguments;
        EXPECT_EQ(bench.faults("w.mxf"), std::vector<std::string>()) << arguments;
    }
}

// Cut within each packet of essence but the first, behind each, and ahead of
// the footer.
TEST(WrapGolden, EveryPrefixOpensAndGivesWhatItHolds)
{
    Bench const bench;
    makeInputs(bench);
    for (std::string const arguments :
         {"groups.m2v tone.wav packets --partition-every 5 --index-in body", "tone.wav --index-in header",
          "frames.dv --wrapping clip", "groups.m2v --wrapping clip"})
    {
        bench.run("wrap --force --deterministic -o w.mxf " + arguments);
        bench.run("unwrap --force w.mxf -o whole");
        Bytes const file = bench.bytes("w.mxf");
        std::vector<Values> const tracks = essenceIn(bench, "w.mxf");
        bool const isClip = tracks[0].size() == 1;
        std::set<std::size_t> places = {bench.info("w.mxf")["partitions"].back()["offset"].get<std::size_t>()};
        for (Values const & values : tracks)
            for (auto const & [start, end] : values)
                for (std::size_t const place : {start + (end - start) / 2, end})
                    if (isClip || place >= tracks[0][0].second)
                        places.insert(place);

        for (std::size_t const place : places)
        {
            SCOPED_TRACE(arguments + ", cut at " + std::to_string(place));
            bench.scratch.write("w_cut.mxf", file.first(place));
            EXPECT_GT(bench.info("w_cut.mxf")["partitions"].size(), 1u);
            Ended const ended = bench.vantry("unwrap --force --json w_cut.mxf -o cut");
            EXPECT_EQ(ended.status, 3) << ended.errors;
            Json const delivered = Json::parse(ended.output);
            ASSERT_EQ(delivered.size(), tracks.size());
            for (std::size_t i = 0; i < tracks.size(); ++i)
            {
                std::string const name = delivered[i]["file"];
                std::size_t const header = fs::path(name).extension() == ".wav" ? 44 : 0;
                Bytes const got = bench.bytes("cut/" + name);
                Bytes const all = bench.bytes("whole/w" + name.substr(5));
                ASSERT_EQ(got.size(), header + bytesAhead(tracks[i], place)) << name;
                if (!isClip)
                {
                    EXPECT_EQ(delivered[i]["edit_units"], elementsAhead(tracks[i], place)) << name;
                }
                EXPECT_TRUE(
                    std::equal(got.begin() + std::ptrdiff_t(header), got.end(), all.begin() + std::ptrdiff_t(header)));
            }
        }
    }
}

}}
