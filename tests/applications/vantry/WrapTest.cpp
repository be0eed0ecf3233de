// Files that the program makes: held against themselves, against their inputs,
// and as ffmpeg and mediainfo see them.

#include "support/Bench.h"
#include "support/WaveFile.h"

namespace Vantry { namespace Tests {

namespace fs = std::filesystem;

namespace {

Bytes essenceOf(Bench const & bench, std::string const & name)
{
    if (fs::path(name).extension() == ".wav")
        return samplesOf(bench.bytes(name));
    if (!fs::is_directory(bench.scratch.path() / name))
        return bench.bytes(name);
    bench.shell("cat $(ls -v " + name + "/*) > .all");
    return bench.bytes(".all");
}

/// "H B1 Bi F R": the partitions, with the stream and the index in them.
std::string layoutOf(Json const & info)
{
    std::string layout;
    for (Json const & partition : info["partitions"])
    {
        layout += layout.empty() ? "" : " ";
        layout += char(std::toupper(partition["kind"].get<std::string>().front()));
        layout += partition["index_sid"] != 0 ? "i" : "";
        layout += partition["body_sid"] != 0 ? "1" : "";
    }
    return layout + (info["random_index_pack"].is_null() ? "" : " R");
}

struct Case
{
    char const * name;
    char const * options;
    std::vector<std::string> inputs;
    char const * layout;
    char const * index;
};

class WrapTest : public BenchTest
{
protected:
    static void SetUpTestSuite()
    {
        if (!hasFFmpeg())
            return;
        bench = std::make_unique<Bench>();
        bench->pictures("long.m2v", "s=720x576:r=25", "-g 12 -bf 2 -flags +ildct+ilme -b:v 6M");
        bench->pictures("closed.m2v", "s=352x288:r=50", "-g 25 -bf 1 -flags +cgop -sc_threshold 1000000000");
        bench->pictures("ntsc.m2v", "s=720x480:r=30000/1001", "-g 15 -bf 2");
        bench->pictures("intra.m2v", "s=720x576:r=25", "-g 1 -pix_fmt yuv422p -intra_vlc 1 -b:v 20M");
        bench->shell("mkdir pics");
        bench->ffmpeg("-f lavfi -i testsrc2=d=1:s=176x144:r=25 -c:v jpeg2000 -format j2k pics/%d.j2c");
        bench->sound("mono.wav", "-c:a pcm_s16le");
        bench->sound("five.wav", "-ac 6 -c:a pcm_s24le", "1.99");
        bench->sound("eight.wav", "-ac 8 -c:a pcm_s32le", "2.5");
    }
};

// clang-format off
Case const CASES[] = {
    {"pictures alone",       "",                                         {"long.m2v"},                           "H B1 Bi F R", "vbe"},
    {"two sound tracks",     "--kag 1",                                  {"long.m2v", "mono.wav", "five.wav"},   "H B1 Bi F R", "vbe"},
    {"closed groups, 50",    "--timecode 10:00:00:49",                   {"closed.m2v", "mono.wav"},             "H B1 Bi F R", "vbe"},
    {"NTSC",                 "--timecode '01:00:59;29'",                 {"ntsc.m2v", "mono.wav", "mono.wav"},   "H B1 Bi F R", "vbe"},
    {"parts",                "--partition-every 20 --index-in body",     {"intra.m2v", "mono.wav", "eight.wav"}, "H B1 Bi1 Bi1 Bi F R", "vbe"},
    {"parts, index at end",  "--partition-every 30 --no-rip",            {"long.m2v", "mono.wav"},               "H B1 B1 Bi F", "vbe"},
    {"JPEG 2000",            "",                                         {"pics", "mono.wav"},                   "H B1 Bi F R", "vbe"},
    {"sound alone",          "--index-in header",                        {"five.wav", "mono.wav"},               "Hi B1 F R", "cbe"},
    {"NTSC sound alone",     "--edit-rate 30000/1001 --index-in header", {"mono.wav"},                           "Hi B1 F R", "cbe"},
    {"a clip of sound",      "--wrapping clip",                          {"five.wav"},                           "H B1 Bi F R", "cbe"},
    {"a clip of pictures",   "--wrapping clip --kag 4096",               {"long.m2v"},                           "H B1 Bi F R", "vbe"},
};
// clang-format on

/// As arguments, sound ahead of pictures, which come first in the file.
std::string inputsOf(Case const & c)
{
    std::string sound;
    std::string pictures;
    for (std::string const & input : c.inputs)
        (fs::path(input).extension() == ".wav" ? sound : pictures) += " " + input;
    return sound + pictures;
}

/// What was wrapped comes out again, sound with silence behind it, and goes in
/// again as it is.
void expectRoundTrip(Bench const & bench, Case const & c)
{
    Json const tracks = Json::parse(bench.run("unwrap --json --force w.mxf -o out"));
    ASSERT_EQ(tracks.size(), c.inputs.size());
    std::string again;
    for (Json const & track : tracks)
    {
        std::string const output = "out/" + track["file"].get<std::string>();
        std::string const & input = c.inputs.at(track["track"].get<std::size_t>() - 2);
        Bytes const in = essenceOf(bench, input);
        Bytes const out = essenceOf(bench, output);
        std::size_t const common = std::min(in.size(), out.size());
        EXPECT_EQ(in.first(common), out.first(common)) << input;
        EXPECT_TRUE(std::all_of(out.begin() + std::ptrdiff_t(common), out.end(), [](int byte) { return byte == 0; }));
        bool const isCut = input == "eight.wav" || c.inputs[0] == "pics";
        EXPECT_TRUE(out.size() >= in.size() || isCut) << "no pictures beside it";
        again += " " + output;
    }

    bench.run("wrap --force -o again.mxf " + std::string(c.options) + again);
    bench.run("unwrap --force again.mxf -o out2");
    for (Json const & track : tracks)
    {
        std::string const output = track["file"];
        EXPECT_EQ(essenceOf(bench, "out/" + output), essenceOf(bench, "out2/again" + output.substr(1)));
    }
}

/// ffmpeg decodes the file to what it decodes the unwrapped essence to, from
/// the start and from the middle.
void expectSameInFFmpeg(Bench const & bench, Case const & c)
{
    for (std::size_t i = 0; i < c.inputs.size(); ++i)
    {
        bool const isSound = fs::path(c.inputs[i]).extension() == ".wav";
        std::string const essence = "out/w_" + std::to_string(i + 2) +
                                    (isSound                 ? ".wav"
                                     : c.inputs[i] == "pics" ? "/%08d.j2c"
                                                             : ".m2v");
        std::string const stream = " -map 0:" + std::to_string(i);
        std::string const form = isSound ? " -c:a pcm_s32le -f md5 -" : " -c:v rawvideo -f md5 -";
        EXPECT_EQ(bench.ffmpeg("-i w.mxf" + stream + form), bench.ffmpeg("-i " + essence + form)) << c.inputs[i];
        if (isSound)
            continue;
        std::string const shown = " -vf 'select=gte(t\\,0.8)' -frames:v 1 -c:v rawvideo -f md5 -";
        EXPECT_EQ(bench.ffmpeg("-ss 0.8 -i w.mxf" + stream + " -frames:v 1 -c:v rawvideo -f md5 -"),
                  bench.ffmpeg("-i w.mxf" + stream + shown));
    }
    std::string const said = bench.shell("ffprobe -v warning -show_entries stream=codec_type w.mxf");
    EXPECT_EQ(said.find("[mxf"), std::string::npos) << said;
}

}

TEST_F(WrapTest, MakesFilesThatAllRead)
{
    VANTRY_NEEDS_FFMPEG();
    for (Case const & c : CASES)
    {
        SCOPED_TRACE(c.name);
        bench->run("wrap --force -o w.mxf " + std::string(c.options) + inputsOf(c));
        EXPECT_EQ(bench->faults("w.mxf"), std::vector<std::string>());

        Json const info = bench->info("w.mxf");
        bool const hasRIP = std::string(c.layout).back() == 'R';
        EXPECT_EQ(info["warnings"].size(), hasRIP ? 0u : 1u) << info["warnings"];
        EXPECT_EQ(info["header_metadata"]["status"], "closed_complete");
        EXPECT_EQ(info["operational_pattern"]["name"], "OP1a");
        EXPECT_EQ(layoutOf(info), c.layout);
        Json const container = info["containers"][0];
        EXPECT_EQ(container["index"]["kind"], c.index);
        EXPECT_EQ(container["readable_edit_units"], container["duration"]);
        EXPECT_EQ(info["packages"][0]["tracks"][1]["duration"], container["duration"]);

        expectRoundTrip(*bench, c);
        expectSameInFFmpeg(*bench, c);
    }
}

TEST_F(WrapTest, SaysWhatItWasTold)
{
    VANTRY_NEEDS_FFMPEG();
    bench->run("wrap --force -o w.mxf ntsc.m2v eight.wav --timecode '01:00:59;29' --name 'Zwölf' --kag 2048");
    Json const info = bench->info("w.mxf");
    Json const & material = info["packages"][0];
    EXPECT_EQ(material["name"], "Zwölf");
    EXPECT_EQ(info["partitions"][1]["kag_size"], 2048);
    for (Json const & package : info["packages"])
        for (Json const & track : package["tracks"])
        {
            Json const expected = track["kind"] == "timecode" ? Json("01:00:59;29") : track["start_timecode"];
            EXPECT_EQ(track["start_timecode"], expected);
        }
    EXPECT_EQ(material["tracks"][0]["id"], 1);
    EXPECT_EQ(material["tracks"][1]["kind"], "picture");

    if (std::system("mediainfo --Version > /dev/null 2>&1") != 0)
        GTEST_SKIP() << "there is no mediainfo";
    Json const tracks = Json::parse(bench->shell("mediainfo --Output=JSON w.mxf"))["media"]["track"];
    EXPECT_EQ(tracks[0]["Format_Settings"], "Closed / Complete");
    EXPECT_EQ(tracks[1]["Format"], "MPEG Video");
    EXPECT_EQ(tracks[1]["FrameRate"], "29.970");
    EXPECT_EQ(tracks[1]["FrameCount"], "60");
    EXPECT_EQ(tracks[2]["Channels"], "8");
    EXPECT_EQ(tracks[2]["BitDepth"], "32");
    EXPECT_EQ(tracks[3]["TimeCode_FirstFrame"], "01:00:59;29");
}

TEST_F(WrapTest, MakesSetsOfAtoms)
{
    VANTRY_NEEDS_FFMPEG();
    bench->run("wrap --pattern opatom pics long.m2v mono.wav five.wav long.m2v -o set --timecode 10:00:00:00");
    std::vector<std::string> const names = {"pics", "long", "long_2", "mono", "five"};
    std::vector<int> const durations = {25, 50, 50, 50, 50};
    for (std::size_t n = 0; n < names.size(); ++n)
    {
        SCOPED_TRACE(names[n]);
        std::string const file = "set/" + names[n] + ".mxf";
        EXPECT_EQ(bench->faults(file), std::vector<std::string>());
        Json const info = bench->info(file);
        EXPECT_EQ(info["warnings"].size(), 0u) << info["warnings"];
        EXPECT_EQ(info["header_metadata"]["status"], "closed_complete");
        EXPECT_EQ(info["operational_pattern"]["name"], "OPAtom");
        EXPECT_EQ(info["containers"][0]["wrapping"], "clip");
        EXPECT_EQ(info["packages"][0]["umid"], bench->info("set/pics.mxf")["packages"][0]["umid"]);
        Json const & tracks = info["packages"][0]["tracks"];
        ASSERT_EQ(tracks.size(), names.size() + 1);
        EXPECT_EQ(tracks[0]["start_timecode"], "10:00:00:00");
        for (std::size_t i = 0; i < names.size(); ++i)
        {
            EXPECT_EQ(tracks[i + 1]["id"], i + 2);
            EXPECT_EQ(tracks[i + 1]["duration"], durations[i]);
        }
        std::string const path = Json::parse(bench->run("unwrap --force --json -o atoms " + file))[0]["file"];
        std::string const id = "_" + std::to_string(n + 2);
        EXPECT_EQ(path.substr(0, names[n].size() + id.size()), names[n] + id);
        std::string const inputs[] = {"pics", "long.m2v", "long.m2v", "mono.wav", "five.wav"};
        Bytes const in = essenceOf(*bench, inputs[n]);
        EXPECT_EQ(essenceOf(*bench, "atoms/" + path).first(in.size()), in);
    }
    bench->sound("late.wav", "-c:a pcm_s16le -write_bext 1 -metadata time_reference=1728000000");
    bench->run("wrap --pattern opatom late.wav mono.wav -o late");
    for (char const * file : {"late/late.mxf", "late/mono.mxf"})
        EXPECT_EQ(bench->info(file)["packages"][0]["tracks"][0]["start_timecode"], "10:00:00:00") << file;

    EXPECT_EQ(bench->vantry("wrap --pattern opatom mono.wav text -o none").status, 1);
    EXPECT_FALSE(fs::exists(bench->scratch.path() / "none"));
}

TEST_F(WrapTest, MakesTheSameBytesOnDemand)
{
    VANTRY_NEEDS_FFMPEG();
    for (char const * name : {"one.mxf", "two.mxf"})
        bench->run("wrap --force --deterministic long.m2v mono.wav -o " + std::string(name));
    EXPECT_EQ(bench->bytes("one.mxf"), bench->bytes("two.mxf"));
}

TEST_F(WrapTest, LeavesFilesThatOpenWhereverTheyAreCut)
{
    VANTRY_NEEDS_FFMPEG();
    bench->run("wrap --force -o w.mxf intra.m2v mono.wav --partition-every 20 --index-in body");
    Bytes const whole = bench->bytes("w.mxf");
    Json const partitions = bench->info("w.mxf")["partitions"];
    std::size_t const second = partitions[1]["offset"];
    std::size_t const footer = partitions.back()["offset"];
    for (std::size_t end = second + 200000; end < footer; end += whole.size() / 23 + 1)
    {
        SCOPED_TRACE(end);
        bench->scratch.write("cut.mxf", whole.first(end));
        bench->run("info cut.mxf");
        Ended const ended = bench->vantry("unwrap --force cut.mxf -o cut");
        EXPECT_EQ(ended.status, 3) << ended.errors;
        Bytes const pictures = bench->bytes("cut/cut_2.m2v");
        EXPECT_GT(pictures.size(), 0u);
        EXPECT_EQ(pictures, bench->bytes("intra.m2v").first(pictures.size()));
    }
}

TEST_F(WrapTest, RefusesWhatItCannotDo)
{
    VANTRY_NEEDS_FFMPEG();
    Bytes const video = bench->bytes("long.m2v");
    Bytes const picture = hex("00 00 01 00");
    auto const first = std::search(video.begin(), video.end(), picture.begin(), picture.end());
    bench->scratch.write("huge.m2v", Bytes(video.begin(), first) + hex("00 00 01 B2") + repeated(1 << 24, 0xFF) +
                                         Bytes(first, video.end()));
    bench->scratch.write("cut.wav", bench->bytes("mono.wav").first(100000));
    bench->scratch.write("nine.wav", waveFile(waveChunk("fmt ", hex("0100 0900 80BB0000 002F0D00 1200 1000")) +
                                              waveChunk("data", repeated(1800, 0))));
    bench->scratch.write("mute.wav", waveFile(waveChunk("fmt ", PCM_FORMAT) + waveChunk("data", {})));
    bench->shell("mkfifo pipe");
    bench->sound("float.wav", "-ac 6 -c:a pcm_f32le");
    bench->scratch.write("text", repeated(100, 'a'));
    bench->scratch.write("there.mxf", {});

    std::tuple<std::string, int, std::string> const refusals[] = {
        {"huge.m2v", 1, "huge.m2v: edit unit 0 has "},
        {"cut.wav", 1, "cut.wav: The wave stream ends at byte 100000, "},
        {"long.m2v nine.wav", 1, "nine.wav: has 9 channels, and a track takes 8 at most"},
        {"text", 1, "text: is none of what can be wrapped, "},
        {"nothing", 1, "nothing: can't be opened: No such file or directory"},
        {"mono.wav -o there.mxf", 1, "there.mxf: is there already, and kept without --force"},
        {"mono.wav -o no/w.mxf", 1, "no/w.mxf: can't be written: No such file or directory"},
        {"mono.wav -o pics --force", 1, "pics: is a directory"},
        {"mono.wav -o pipe --force", 1, "pipe: is no plain file, and stays as it is"},
        {"mono.wav -o no/", 2, "wrap: --output 'no/' names no file"},
        {"mono.wav -o -", 2, "-: an MXF file can't go to standard output"},
        {"mono.wav -o ./mono.wav --force", 2, "./mono.wav: is an input or lies in one"},
        {"pics -o pics/w.mxf", 2, "pics/w.mxf: is an input or lies in one"},
        {"mute.wav", 1, "mute.wav: holds no sound"},
        {"float.wav", 1, "float.wav: Wave file does not contain PCM essence"},
        {"pics/1.j2c", 1, "pics/1.j2c: is a single JPEG 2000 codestream"},
        {"there.mxf", 1, "there.mxf: is empty"},
        {"long.m2v closed.m2v", 2, "x.mxf: closed.m2v has 50/1 pictures a second, and the file 25/1"},
        {"long.m2v long.m2v", 2, "x.mxf: a file takes one input with predicted pictures, and long.m2v is another"},
        {"long.m2v --edit-rate 30", 2, "x.mxf: long.m2v has 25/1 pictures a second, and the file 30/1"},
        {"mono.wav --edit-rate 0/1", 2, "x.mxf: --edit-rate 0/1 is no rate such as 25/1"},
        {"mono.wav --edit-rate 1000/1", 2, "x.mxf: there is no time code at 1000/1 edit units a second"},
        {"mono.wav --timecode 1:2:3:4", 2, "x.mxf: --timecode 1:2:3:4 is no time code such as 10:00:00:00"},
        {"mono.wav --timecode '00:00:00;00'", 2,
         "x.mxf: there is no time code 00:00:00;00 at 25/1 edit units a second"},
        {"mono.wav --pattern opatom --wrapping frame", 2, "x.mxf: --pattern opatom takes clips, not frames"},
        {"mono.wav --pattern op2", 2, "x.mxf: --pattern is op1a or opatom, not op2"},
        {".", 1, ".: is a folder that doesn't begin with a JPEG 2000 codestream"},
        {"pipe", 1, "pipe: is no plain file"},
        {"mono.wav --name $(printf '%032767d' 0)", 2, "x.mxf: --name has 32766 characters at most"},
        {"mono.wav --kag 0", 2, "x.mxf: --kag goes from 1 to 1048576"},
        {"mono.wav --index-in tail", 2, "x.mxf: --index-in is header, body or end, not tail"},
        {"long.m2v --index-in header", 2, "x.mxf: --index-in header needs edit units of one size, and these differ"},
        {"mono.wav mono.wav --wrapping clip", 2, "x.mxf: --wrapping clip takes one input, these are 2"},
        {"mono.wav --wrapping clip --partition-every 9", 2, "x.mxf: --partition-every doesn't go with a clip"},
    };
    for (auto const & [arguments, status, message] : refusals)
    {
        SCOPED_TRACE(arguments);
        bool const namesOutput = arguments.find("-o") != std::string::npos;
        Ended const ended = bench->vantry("wrap " + arguments + (namesOutput ? "" : " -o x.mxf"));
        EXPECT_EQ(ended.status, status);
        EXPECT_EQ(ended.errors.substr(0, 8 + message.size()), "vantry: " + message);
        EXPECT_EQ(bench->shell("ls -A | grep -c 'part$' || true"), "0\n") << "drafts are left";
        EXPECT_FALSE(fs::exists(bench->scratch.path() / "x.mxf"));
    }
}

// A disk that is full shows as a file that mustn't grow.
TEST_F(WrapTest, RemovesItsDraftWhenItFails)
{
    VANTRY_NEEDS_FFMPEG();
    for (char const * limit : {"1", "64", "1000"})
    {
        Ended const ended = bench->vantry("--version; ulimit -f " + std::string(limit) +
                                          "; '" VANTRY_PROGRAM "' wrap intra.m2v -o full.mxf");
        EXPECT_EQ(ended.status, 1);
        EXPECT_NE(ended.errors.find("can't be written: File too large"), std::string::npos) << ended.errors;
    }
    bench->scratch.write("quiet.wav", waveFile(waveChunk("fmt ", PCM_FORMAT) + waveChunk("data", {}, 0xFFFFFFFF)));
    fs::resize_file(bench->scratch.path() / "quiet.wav", UInt64(200) << 30);
    Ended const stopped = bench->vantry("wrap quiet.wav -o stopped.mxf & sleep 0.7; ls -A | grep -c part > during;"
                                        " kill -INT $!; kill -TERM $!; wait $!");
    EXPECT_EQ(stopped.status, 1);
    EXPECT_EQ(stopped.errors, "vantry: stopped.mxf: interrupted\n");
    EXPECT_EQ(bench->text("during"), "1\n");
    EXPECT_EQ(bench->shell("ls -A | grep -c 'part$\\|full.mxf\\|stopped.mxf' || true"), "0\n");
}

}}
