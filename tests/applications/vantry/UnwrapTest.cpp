// Essence as the program takes it out of files, next to what ffmpeg copies.

#include "support/FFmpeg.h"
#include "support/Samples.h"
#include "support/VantryProgram.h"
#include "support/WaveFile.h"

#include <nlohmann/json.hpp>
#include <sstream>

namespace Vantry { namespace Tests {

using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;

namespace {

std::string const PICTURE = "-f lavfi -i testsrc2=s=720x576:r=25:d=0.8 ";
std::string const SOUND = "-f lavfi -i sine=r=48000:d=0.8 ";
std::string const D10 =
    "-f lavfi -i testsrc2=s=720x608:r=25:d=0.4 -f lavfi -i sine=r=48000:d=0.4 -c:v mpeg2video -pix_fmt yuv422p -g 1"
    " -b:v 30M -minrate 30M -maxrate 30M -bufsize 1200000 -rc_init_occupancy 1200000 -qmin 1 -qmax 12"
    " -flags +ildct+low_delay -dc 10 -intra_vlc 1 -non_linear_quant 1 -ps 1 -c:a pcm_s16le -f mxf_d10";

/// A file, one of its streams, and where the program puts that.
struct Kind
{
    char const * name;
    std::string arguments;
    char const * stream;
    char const * rawFormat;
    char const * output;
};

// clang-format off
Kind const KINDS[] = {
    {"MPEG-2, long GOP", PICTURE + SOUND + "-c:v mpeg2video -g 12 -bf 2 -c:a pcm_s16le -f mxf", "v:0", "mpeg2video", "a_2.m2v"},
    {"16-bit sound",     PICTURE + SOUND + "-c:v mpeg2video -c:a pcm_s16le -f mxf",             "a:0", "s16le", "a_3.wav"},
    {"MPEG-2, intra",    PICTURE + SOUND + "-c:v mpeg2video -g 1 -b:v 20M -c:a pcm_s24le -f mxf", "v:0", "mpeg2video", "a_2.m2v"},
    {"24-bit sound",     PICTURE + SOUND + "-c:v mpeg2video -c:a pcm_s24le -f mxf",             "a:0", "s24le", "a_3.wav"},
    {"D-10",             D10,                                                                   "v:0", "mpeg2video", "a_2.m2v"},
    {"sound of D-10",    D10,                                                                   "a:0", "s16le", "a_3.wav"},
    {"AVC",              PICTURE + "-c:v libx264 -profile:v high -bf 2 -f mxf",                 "v:0", "h264", "a_2.h264"},
    {"JPEG 2000",        PICTURE + "-c:v jpeg2000 -f mxf",                                      "v:0", "rawvideo", "a_2"},
    {"DNxHD, a clip",    "-f lavfi -i testsrc2=s=1920x1080:r=25:d=0.2 -c:v dnxhd -b:v 120M -pix_fmt yuv422p -f mxf_opatom",
                                                                                                "v:0", "dnxhd", "a_2.bin"},
    {"16 bits, a clip",  SOUND + "-c:a pcm_s16le -f mxf_opatom",                                "a:0", "s16le", "a_2.wav"},
    {"24 bits, a clip",  SOUND + "-c:a pcm_s24le -f mxf_opatom",                                "a:0", "s24le", "a_2.wav"},
};
// clang-format on

void shell(std::string const & command)
{
    if (std::system(command.c_str()) != 0)
        throw std::runtime_error("failed: " + command);
}

/// "a.mxf", made by ffmpeg.
void make(ScratchFolder const & scratch, std::string const & arguments)
{
    FFmpegFile const file(arguments);
    fs::copy_file(file.path(), scratch.path() / "a.mxf", fs::copy_options::overwrite_existing);
}

/// The essence in an output: of a folder the files one after the other.
Bytes essenceOf(fs::path const & output)
{
    if (output.extension() == ".wav")
        return samplesOf(readFile(output));
    if (!fs::is_directory(output))
        return readFile(output);

    std::vector<fs::path> files(fs::directory_iterator(output), {});
    std::sort(files.begin(), files.end());
    Bytes bytes;
    for (fs::path const & file : files)
        bytes += readFile(file);
    return bytes;
}

/// What ffmpeg copies, and where its packets begin in that.
struct Copied
{
    Bytes bytes;
    std::vector<std::size_t> starts; // and the end
};

Copied copyByFFmpeg(ScratchFolder const & scratch, Kind const & kind)
{
    std::string const cd = "cd '" + scratch.path().string() + "' && ";
    std::string const stream = kind.stream;
    shell(cd + "ffmpeg -nostdin -y -loglevel error -i a.mxf -map 0:" + stream + " -c copy -f " + kind.rawFormat +
          " ref");
    shell(cd + "ffprobe -v error -select_streams " + stream +
          " -show_entries packet=size -of default=nk=1:nw=1 a.mxf > sizes");

    Copied copied{readFile(scratch.path() / "ref"), {0}};
    Bytes const sizes = readFile(scratch.path() / "sizes");
    std::istringstream text(std::string(sizes.begin(), sizes.end()));
    for (std::size_t size = 0; text >> size;)
        copied.starts.push_back(copied.starts.back() + size);
    return copied;
}

/// Takes off the footer partition and all behind it, the index among that.
void removeFooter(fs::path const & file)
{
    Bytes bytes = readFile(file);
    Bytes const key = hex("06 0E 2B 34 02 05 01 01 0D 01 02 01 01 04");
    bytes.erase(std::find_end(bytes.begin(), bytes.end(), key.begin(), key.end()), bytes.end());
    writeFile(file, bytes);
}

std::vector<std::string> listing(fs::path const & folder)
{
    std::vector<std::string> names;
    if (fs::exists(folder))
        for (fs::directory_entry const & entry : fs::directory_iterator(folder))
            names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

}

TEST(Unwrap, GivesWhatFFmpegCopies)
{
    VANTRY_NEEDS_FFMPEG();
    for (Kind const & kind : KINDS)
    {
        SCOPED_TRACE(kind.name);
        ScratchFolder const scratch;
        make(scratch, kind.arguments);
        Copied const copied = copyByFFmpeg(scratch, kind);

        Ended const whole = runVantry(scratch, "unwrap a.mxf -o whole --json");
        EXPECT_EQ(whole.status, 0) << whole.errors;
        EXPECT_TRUE(essenceOf(scratch.path() / "whole" / kind.output) == copied.bytes);

        // Edit units of sound in a clip are samples, packets are not.
        bool const isSoundClip = kind.stream[0] == 'a' && std::string(kind.output) == "a_2.wav";
        std::size_t const frame = kind.rawFormat == std::string("s24le") ? 3 : 2;
        auto const start = [&](std::size_t unit)
        {
            return isSoundClip ? unit * frame : copied.starts.at(unit);
        };

        // By the index, once more behind a run-in, and by walking.
        for (char const * folder : {"indexed", "behind", "walked"})
        {
            SCOPED_TRACE(folder);
            Ended const part =
                runVantry(scratch, std::string("unwrap a.mxf -o ") + folder + " --from 2 --count 2 --json");
            EXPECT_EQ(part.status, 0) << part.errors;
            EXPECT_TRUE(essenceOf(scratch.path() / folder / kind.output) ==
                        Bytes(copied.bytes.begin() + start(2), copied.bytes.begin() + start(4)));
            EXPECT_EQ(Json::parse(part.output).back()["edit_units"], 2);
            if (std::string(folder) == "indexed")
                writeFile(scratch.path() / "a.mxf", repeated(8, 7) + readFile(scratch.path() / "a.mxf"));
            else
                removeFooter(scratch.path() / "a.mxf");
        }
    }
}

TEST(Unwrap, TakesACutFileUpToTheCut)
{
    VANTRY_NEEDS_FFMPEG();
    ScratchFolder const scratch;
    make(scratch, PICTURE + SOUND + "-c:v mpeg2video -c:a pcm_s16le -f mxf");
    ASSERT_EQ(runVantry(scratch, "unwrap a.mxf -o whole").status, 0);
    Bytes const file = readFile(scratch.path() / "a.mxf");
    Bytes const picture = readFile(scratch.path() / "whole" / "a_2.m2v");
    Bytes const sound = samplesOf(readFile(scratch.path() / "whole" / "a_3.wav"));
    UInt64 const EDIT_UNITS = 20;

    UInt64 before = 0;
    for (std::size_t cut = 1; cut < 40; ++cut)
    {
        SCOPED_TRACE(cut);
        scratch.write("a.mxf", file.first(file.size() * cut / 40));
        Ended const ended = runVantry(scratch, "unwrap a.mxf -o cut --force --json");
        if (before == 0 && ended.status == 1)
            continue;

        ASSERT_EQ(ended.status, 3);
        Json const tracks = Json::parse(ended.output);
        UInt64 const pictures = tracks[0]["edit_units"];
        UInt64 const sounds = tracks[1]["edit_units"];
        UInt64 const there = std::min(pictures, sounds);
        EXPECT_GE(there, before);
        before = there;
        UInt64 const missing = EDIT_UNITS - there;
        EXPECT_NE(ended.errors.find("; " + std::to_string(missing) + " edit unit"), std::string::npos) << ended.errors;

        Bytes const cutPicture = readFile(scratch.path() / "cut" / "a_2.m2v");
        Bytes const cutSound = samplesOf(readFile(scratch.path() / "cut" / "a_3.wav"));
        EXPECT_TRUE(cutPicture == picture.first(cutPicture.size()));
        EXPECT_TRUE(cutSound == sound.first(cutSound.size()));
        EXPECT_EQ(cutSound.size(), sounds * 3840);
    }
    EXPECT_GE(before, EDIT_UNITS - 2);
}

TEST(Unwrap, TellsOfElementsThatNoTrackHas)
{
    VANTRY_NEEDS_FFMPEG();
    ScratchFolder const scratch;
    make(scratch, PICTURE + SOUND + "-c:v mpeg2video -c:a pcm_s16le -f mxf");
    std::string const LINE = "  elements of no track were left there, the first numbered 0x17010";
    auto const told = [&]
    {
        return runVantry(scratch, "unwrap a.mxf -o out --force --track 2").output;
    };
    EXPECT_EQ(told().find(LINE.substr(0, 22)), std::string::npos) << "a track that isn't wanted, and system items";

    Bytes bytes = readFile(scratch.path() / "a.mxf");
    Bytes const key = hex("06 0E 2B 34 01 02 01 01 0D 01 03 01 16");
    for (auto at = bytes.begin(); (at = std::search(at, bytes.end(), key.begin(), key.end())) != bytes.end(); ++at)
        at[12] = 0x17;
    writeFile(scratch.path() / "a.mxf", bytes);
    EXPECT_NE(told().find("\n" + LINE), std::string::npos) << told();
}

TEST(Unwrap, KeepsFilesAndLeavesNothingHalfDone)
{
    VANTRY_NEEDS_FFMPEG();
    ScratchFolder const scratch;
    make(scratch, PICTURE + SOUND + "-c:v mpeg2video -c:a pcm_s16le -f mxf");

    // clang-format off
    std::tuple<char const *, int, char const *, std::vector<std::string>> const CASES[] = {
        {"a.mxf -o out --track 3",            0, "",                                           {"a_3.wav"}},
        {"a.mxf -o out",                      1, "out/a_3.wav: is there already, and kept without --force", {"a_3.wav"}},
        {"a.mxf -o out --force",              0, "",                                           {"a_2.m2v", "a_3.wav"}},
        {"a.mxf -o new --track 7",            2, "a.mxf: no essence track has the ID 7",       {}},
        {"a.mxf -o new --from 20",            2, "a.mxf: there are only 20 edit units",        {}},
        {"a.mxf -o new --count 0",            2, "a.mxf: --count 0 leaves nothing to take",    {}},
        {"a.mxf -o new --from x",             2, "unwrap: --from: x is no number from 0 on",   {}},
        {"a.mxf -o new --count -1",           2, "unwrap: --count: -1 is no number from 0 on", {}},
        {"a.mxf -o -",                        2, "a.mxf: standard output takes one track, these are 2: choose with --track", {}},
        {"a.mxf -o - --track 2 --json",       2, "a.mxf: --json and the essence can't both go to standard output", {}},
        {"a.mxf",                             2, "",                                           {}},
        {"a.mxf -o /dev/null/no",             1, "",                                           {}},
        {"none.mxf -o new",                   1, "none.mxf: can't be opened: No such file or directory", {}},
    };
    // clang-format on
    for (auto const & [arguments, status, problem, left] : CASES)
    {
        SCOPED_TRACE(arguments);
        Ended const ended = runVantry(scratch, std::string("unwrap ") + arguments);
        EXPECT_EQ(ended.status, status);
        EXPECT_EQ(std::count(ended.errors.begin(), ended.errors.end(), '\n'), status == 0 ? 0 : 1);
        if (*problem != '\0')
        {
            EXPECT_EQ(ended.errors, std::string("vantry: ") + problem + "\n");
        }
        EXPECT_EQ(listing(scratch.path() / (left.empty() ? "new" : "out")), left);
    }

    ASSERT_EQ(runVantry(scratch, "unwrap a.mxf -o - --track 2 > piped").status, 0);
    EXPECT_TRUE(readFile(scratch.path() / "piped") == readFile(scratch.path() / "out" / "a_2.m2v"));
}

TEST(Unwrap, RemovesItsDraftsWhenInterrupted)
{
    VANTRY_NEEDS_FFMPEG();
    ScratchFolder const scratch;
    make(scratch, SOUND + "-c:a pcm_s16le -f mxf_opatom");

    // The clip gets longer than can be written in the time that it has.
    Bytes bytes = readFile(scratch.path() / "a.mxf");
    Bytes const key = hex("06 0E 2B 34 01 02 01 01 0D 01 03 01 16");
    auto const clip = std::search(bytes.begin(), bytes.end(), key.begin(), key.end());
    ASSERT_NE(clip, bytes.end());
    Bytes const length = hex("87 00 00 20 00 00 00 00");
    std::copy(length.begin(), length.end(), clip + 16);
    writeFile(scratch.path() / "a.mxf", bytes);
    fs::resize_file(scratch.path() / "a.mxf", UInt64(64) << 30);

    Ended const ended = runVantry(scratch, "unwrap a.mxf -o new & sleep 0.5; ls -A new > during;"
                                           " kill -TERM $!; wait $!");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.errors, "vantry: a.mxf: interrupted\n");
    EXPECT_GT(readFile(scratch.path() / "during").size(), 0u);
    EXPECT_FALSE(fs::exists(scratch.path() / "new"));
}

TEST(Unwrap, TakesRealFilesApart)
{
    VANTRY_NEEDS_SAMPLES();
    // clang-format off
    std::tuple<char const *, int, char const *> const CASES[] = {
        {"F001_sample.mxf", 0, R"([[2,"picture","a_2.m2v",2,500040],[3,"sound","a_3.wav",2,46148]])"},
        {"F004_oneframe.pcm.mxf", 0, R"([[2,"sound","a_2.wav",1,36068]])"},
        {"F048_8c0c4ebc_mono_sine.mxf", 0, R"([[2,"sound","a_2.wav",44160,88364]])"}, // a clip, labelled as frames
        {"F068_allMdTypes.mrx", 0, R"([[0,"data","a_0.bin",3,39]])"},                 // by the track's number
        {"F072_rexy_sunbathe_mrx.mxf", 3, R"([[1,"data","a_1.bin",72,17697]])"},      // the first of two streams
        {"F080_CHIMERA_NETFLIX_2398.mxf.hdr", 1, "[]"},                               // a header alone
        {"F116_Plugfest_IMSC_text_IMP1_01_en_tt.mxf", 0, R"([[2,"data","a_2.bin",6240,20247]])"},
        {"F188_video.mxf", 0, R"([[2,"picture","a_2",24,54464]])"},
        {"F191_class14.mxf", 0, R"([[2,"data","a_2.bin",2,14618]])"},                 // private element keys
        {"F193_indirect.mxf", 3, R"([[1,"picture","a_1.bin",1,753664]])"},            // claims 750 edit units
        {"F194_open-incomplete-header.mxf", 0, R"([[1001,"picture","a_1001.h264",1,568832]])"},
        {"F211_fixture.mxf", 0, R"([[2,"picture","a_2.m2v",266,572070]])"},
        {"F217_test03-imf-mm-api-wnoise_a0.mxf", 0, R"([[2,"sound","a_2.wav",4000,24068]])"},
        {"F281_ECL29-SINGLE-CPL-CRYPT_TST_S_EN-EN_UK-U_51_2K_DI_20180103_ECL_IOP_OV_audio_01.mxf", 1, "[]"}, // encrypted
    };
    // clang-format on
    for (auto const & [sample, status, expected] : CASES)
    {
        SCOPED_TRACE(sample);
        ScratchFolder const scratch;
        fs::create_symlink(fs::absolute(sampleFolder() / sample), scratch.path() / "a.mxf");
        Ended const ended = runVantry(scratch, "unwrap a.mxf -o out --json");
        EXPECT_EQ(ended.status, status) << ended.errors;

        Json result = Json::array();
        for (Json const & track : ended.output.empty() ? Json::array() : Json::parse(ended.output))
        {
            result.push_back(Json::array());
            for (auto const & member : track)
                result.back().push_back(member);
        }
        EXPECT_EQ(result, Json::parse(expected));
    }
}

}}
