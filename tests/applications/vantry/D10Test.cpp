// D-10 files that the program makes, and those of ffmpeg: edit unit by edit
// unit, and as ffmpeg and mediainfo see them.

#include "IndexTables/DeltaEntry.h"
#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/Partition.h"
#include "MXFIO/Reader2.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "support/Bench.h"

namespace Vantry { namespace Tests {

namespace {

/// A format of D-10.
struct Format
{
    char const * name;
    char const * sizeAndRate;
    std::string bitRate;
    unsigned int pictureSize;
    char const * label;   // of the container
    char const * product; // as mediainfo calls it
};

// clang-format off
Format const FORMATS[] = {
    {"50 Mb/s, 625", "s=720x608:r=25",         "50000000", 250000, "06.0e.2b.34.04.01.01.01.0d.01.03.01.02.01.01.01", "IMX 50"},
    {"50 Mb/s, 525", "s=720x512:r=30000/1001", "50000000", 208542, "06.0e.2b.34.04.01.01.01.0d.01.03.01.02.01.02.01", "IMX 50"},
    {"40 Mb/s, 625", "s=720x608:r=25",         "40000000", 200000, "06.0e.2b.34.04.01.01.01.0d.01.03.01.02.01.03.01", "IMX 40"},
    {"40 Mb/s, 525", "s=720x512:r=30000/1001", "40000000", 166834, "06.0e.2b.34.04.01.01.01.0d.01.03.01.02.01.04.01", "IMX 40"},
    {"30 Mb/s, 625", "s=720x608:r=25",         "30000000", 150000, "06.0e.2b.34.04.01.01.01.0d.01.03.01.02.01.05.01", "IMX 30"},
    {"30 Mb/s, 525", "s=720x512:r=30000/1001", "30000000", 125125, "06.0e.2b.34.04.01.01.01.0d.01.03.01.02.01.06.01", "IMX 30"},
};
// clang-format on

/// Pictures are of one size, or of any up to that.
void makePictures(Bench const & bench, std::string const & name, Format const & format, bool isConstant = true,
                  std::string const & more = "-g 1 -flags +ildct+low_delay -pix_fmt yuv422p")
{
    std::string const buffer = std::to_string(format.pictureSize * 8);
    std::string const rates = isConstant ? " -b:v " + format.bitRate + " -minrate " + format.bitRate : " -b:v 8M";
    bench.ffmpeg("-f lavfi -i testsrc2=d=0.4:" + std::string(format.sizeAndRate) + " -c:v mpeg2video " + more + rates +
                 " -maxrate " + format.bitRate + " -bufsize " + buffer + " -rc_init_occupancy " + buffer +
                 " -rc_max_vbv_use 1 -qmin 1 -qmax 12 -dc 10 -intra_vlc 1 -non_linear_quant 1 -ps 1 -top 1"
                 " -f mpeg2video " +
                 name);
}

/// A tone for each channel.
void makeSound(Bench const & bench, std::string const & name, unsigned int channels, std::string const & coding,
               std::string const & seconds = "0.4")
{
    std::string tones;
    for (unsigned int i = 0; i < channels; ++i)
        tones += (i == 0 ? "" : "|") + ("0.3*sin(" + std::to_string(1000 + 300 * i) + "*t)");
    bench.ffmpeg("-f lavfi -i \"aevalsrc=" + tones + ":s=48000:d=" + seconds + "\" " + coding + " -bitexact " + name);
}

/// Goes to each edit unit by the index, and reads what is there: "04@0 04@77"
/// and so on, items with their places in the edit unit.
std::vector<std::string> editUnitsOf(Bench const & bench, std::string const & name)
{
    auto const path = Platform::stringToWstring((bench.scratch.path() / name).c_str());
    DataIO::File::FileDataSource source(path.c_str(), -1);
    MXFIO::Reader2 reader(source, ::Vantry::Schema::builtInDictionary(), 65536);
    auto const metadata = reader.headerPartition()->metadata();
    auto & storage = *Metadata::Structural::findPreface(*metadata).contentStorage();
    MXFIO::ContentStorageReader essence(reader, *storage.essenceContainerData(0), true, true, {});

    std::vector<std::string> units;
    auto const duration = essence.duration();
    for (Int64 unit = duration.numerator() - 1; unit >= 0; --unit)
    {
        std::string items;
        EXPECT_TRUE(essence.seek(unit));
        UInt64 const start = essence.bodyPosition();
        EXPECT_EQ(start, UInt64(unit) * essence.editUnitByteCount());
        do
        {
            UInt64 const place = essence.bodyPosition() - start;
            auto const packet = essence.nextKLV(4096);
            if (!KLV::isFillItem(packet->key()))
                items += (items.empty() ? "0" : " 0") + std::to_string(packet->key()[12]) + "@" + std::to_string(place);
        } while (essence.nextElementIndex() != 0);
        units.push_back(items);
    }
    return units;
}

/// "0 512 250880": the places of elements by the delta entries of the index.
std::string deltasOf(Bench const & bench, std::string const & name)
{
    auto const path = Platform::stringToWstring((bench.scratch.path() / name).c_str());
    DataIO::File::FileDataSource source(path.c_str(), -1);
    WrittenFile const file(source);
    auto const & segment = *file.parts()[file.parts().size() - 2].segments.at(0);
    std::string deltas;
    for (unsigned int i = 0; i < segment.deltaEntryCount(); ++i)
        deltas += (i == 0 ? "" : " ") + std::to_string(segment.deltaEntry(i).elementDelta());
    return deltas;
}

bool hasMediainfo()
{
    return std::system("mediainfo --Version > /dev/null 2>&1") == 0;
}

class D10Test : public BenchTest
{
protected:
    static std::string hashOf(std::string const & arguments) { return bench->ffmpeg("-i " + arguments + " -f md5 -"); }

    static void SetUpTestSuite()
    {
        if (!hasFFmpeg())
            return;
        bench = std::make_unique<Bench>();
        makeSound(*bench, "stereo.wav", 2, "-c:a pcm_s16le", "0.5");
        makeSound(*bench, "left.wav", 1, "-c:a pcm_s16le");
        makeSound(*bench, "right.wav", 1, "-c:a pcm_s16le", "0.1");
        makeSound(*bench, "eight.wav", 8, "-c:a pcm_s24le");
        makePictures(*bench, "good.m2v", FORMATS[4]);
    }
};

}

TEST_F(D10Test, MakesFilesThatAllCallD10)
{
    VANTRY_NEEDS_FFMPEG();
    for (Format const & format : FORMATS)
    {
        SCOPED_TRACE(format.name);
        bool const isConstant = format.pictureSize != 200000;
        makePictures(*bench, "p.m2v", format, isConstant);
        bench->run("wrap --d10 --force -o w.mxf stereo.wav p.m2v --timecode 10:00:00:00 --partition-every 7");
        EXPECT_EQ(bench->faults("w.mxf"), std::vector<std::string>());

        Json const info = bench->info("w.mxf");
        EXPECT_EQ(info["warnings"], Json::array());
        Json const container = info["containers"][0];
        unsigned int const units = container["duration"];
        EXPECT_GE(units, 10u);
        EXPECT_EQ(container["index"]["kind"], "cbe");
        EXPECT_EQ(container["readable_edit_units"], units);
        for (Json const & descriptor : info["packages"][1]["descriptors"])
            EXPECT_EQ(descriptor["essence_container"]["label"], format.label);
        unsigned int const picture = (format.pictureSize + 20 + 511) / 512 * 512; // with key, length and fill
        std::string const sound = std::to_string(512 + picture);
        EXPECT_EQ(deltasOf(*bench, "w.mxf"), "0 512 " + sound);
        EXPECT_EQ(editUnitsOf(*bench, "w.mxf"), std::vector<std::string>(units, "04@0 04@77 05@512 06@" + sound));

        // Each player has pictures and sound as they went in; the sound, which
        // is longer, ends with the pictures.
        EXPECT_EQ(hashOf("w.mxf -map 0:v -c:v rawvideo"), hashOf("p.m2v -c:v rawvideo"));
        std::string const samples = bench->shell("ffprobe -v error -select_streams a -show_entries "
                                                 "stream=duration_ts -of default=nk=1:nw=1 w.mxf");
        EXPECT_EQ(
            hashOf("w.mxf -map 0:a -c:a pcm_s16le"),
            hashOf("stereo.wav -af atrim=end_sample=" + samples.substr(0, samples.size() - 1) + " -c:a pcm_s16le"));
        EXPECT_EQ(bench->shell("ffprobe -v error -show_entries stream=codec_name,pix_fmt,height,channels,bit_rate"
                               " -of csv=p=0:nk=1 w.mxf | tr -s '\\n' ';'"),
                  "mpeg2video," + std::string(format.sizeAndRate).substr(6, 3) + ",yuv422p," +
                      (isConstant ? format.bitRate : "N/A") + ",;pcm_s16le,2,1536000;");
        if (hasMediainfo())
        {
            EXPECT_EQ(bench->shell("mediainfo --Inform='General;%Format_Commercial_IfAny%' w.mxf"),
                      std::string(format.product) + "\n");
            EXPECT_EQ(bench->shell("mediainfo --Inform='Video;%Format_Settings_Wrapping%' w.mxf"), "Frame (D-10)\n");
        }

        // Pictures come out as they went in, though there is fill behind them.
        bench->run("unwrap --force w.mxf -o out");
        EXPECT_TRUE(bench->bytes("out/w_2.m2v") == bench->bytes("p.m2v"));
    }
}

TEST_F(D10Test, GivesSoundBackByItsChannels)
{
    VANTRY_NEEDS_FFMPEG();
    struct Case
    {
        std::string inputs;
        char const * form;
        std::string reference;
    };
    Case const CASES[] = {
        {"eight.wav", "pcm_s24le", "-i eight.wav"},
        {"left.wav right.wav stereo.wav", "pcm_s16le",
         "-i left.wav -i right.wav -i stereo.wav -filter_complex \"[1:a]apad[r];[0:a][r][2:a]amerge=inputs=3\""},
    };
    for (Case const & c : CASES)
    {
        SCOPED_TRACE(c.inputs);
        Json const made = Json::parse(bench->run("wrap --json --d10 --force -o w.mxf good.m2v " + c.inputs));
        for (std::size_t i = 1; i < made[0]["tracks"].size(); ++i)
            EXPECT_EQ(made[0]["tracks"][i]["track"], 3);

        std::string const form = std::string(" -c:a ") + c.form;
        std::string const expected = bench->ffmpeg(c.reference + form + " -t 0.4 -f md5 -");
        bench->run("unwrap --force w.mxf -o out");
        EXPECT_EQ(hashOf("out/w_3.wav" + form), expected);
        EXPECT_EQ(hashOf("w.mxf -map 0:a" + form), expected);

        // And as ffmpeg puts it into its own.
        bench->ffmpeg("-i good.m2v -i out/w_3.wav -map 0 -map 1 -c copy -f mxf_d10 f.mxf");
        bench->run("unwrap --force f.mxf -o out");
        EXPECT_TRUE(bench->bytes("out/f_3.wav") == bench->bytes("out/w_3.wav"));
        bench->run("unwrap --force f.mxf -o out --track 3 --from 4 --count 2");
        EXPECT_EQ(hashOf("out/f_3.wav" + form),
                  hashOf("out/w_3.wav -af atrim=start_sample=7680:end_sample=11520,asetpts=0" + form));
    }
}

TEST_F(D10Test, TakesDamagedSoundAsFarAsItGoes)
{
    VANTRY_NEEDS_FFMPEG();
    bench->run("wrap --d10 --force -o w.mxf good.m2v stereo.wav");
    bench->run("unwrap --force w.mxf -o whole --track 3");
    Bytes const whole = bench->bytes("whole/w_3.wav");
    Bytes const file = bench->bytes("w.mxf");
    Bytes const key = hex("06 0E 2B 34 01 02 01 01 0D 01 03 01 06 01 10 00");
    auto const first = std::search(file.begin(), file.end(), key.begin(), key.end());
    auto const second = std::search(first + 1, file.end(), key.begin(), key.end());

    // place: behind the second element's length
    // missing: samples
    std::tuple<std::ptrdiff_t, unsigned char, int, char const *, std::size_t> const CASES[] = {
        {0, 0xFF, 0, "", 0}, // no channel status
        {1, 0x7F, 0, "", 1}, // 1919 samples
        {1, 0x82, 3, "an element of eight-channel sound has 1920 samples in place of 1922; 0 edit units are missing",
         0},
        {3, 0x07, 3,
         "channel 3 has sound that begins later than the others', and isn't written; 0 edit units are missing", 0},
        {7, 0x10, 0, "", 0}, // marked as no sound
    };
    for (auto const & [place, byte, status, errors, missing] : CASES)
    {
        SCOPED_TRACE(place);
        Bytes damaged = file;
        damaged[UInt64(second - file.begin() + 20 + place)] = byte;
        bench->scratch.write("d.mxf", damaged);
        Ended const ended = bench->vantry("unwrap --force d.mxf -o damaged --track 3");
        EXPECT_EQ(ended.status, status);
        EXPECT_EQ(ended.errors, *errors == 0 ? "" : std::string("vantry: d.mxf: ") + errors + "\n");
        EXPECT_EQ(bench->bytes("damaged/d_3.wav").size(), whole.size() - 4 * missing);
    }
}

TEST_F(D10Test, RefusesWhatIsNotD10)
{
    VANTRY_NEEDS_FFMPEG();
    Format const & usual = FORMATS[4];
    makePictures(*bench, "long.m2v", usual, true, "-g 12 -flags +ildct -pix_fmt yuv422p");
    makePictures(*bench, "420.m2v", usual, true, "-g 1 -flags +ildct -pix_fmt yuv420p");
    makePictures(*bench, "progressive.m2v", usual, true, "-g 1 -pix_fmt yuv422p");
    makePictures(*bench, "576.m2v", {"", "s=720x576:r=25", "30000000", 150000, "", ""});
    makePictures(*bench, "50.m2v", {"", "s=720x608:r=50", "30000000", 75000, "", ""});
    makePictures(*bench, "20.m2v", {"", "s=720x608:r=25", "20000000", 100000, "", ""});
    makeSound(*bench, "32.wav", 2, "-c:a pcm_s32le");
    makeSound(*bench, "44100.wav", 2, "-c:a pcm_s16le -ar 44100");
    makeSound(*bench, "three.wav", 3, "-c:a pcm_s16le");
    bench->shell("head -c 20000 stereo.wav > cut.wav");

    // A picture gets longer by stuffing ahead of the next one.
    Bytes large = bench->bytes("good.m2v");
    large.insert(large.begin() + 2 * usual.pictureSize, 9, 0);
    bench->scratch.write("large.m2v", large);

    // clang-format off
    std::tuple<char const *, int, char const *> const CASES[] = {
        {"long.m2v stereo.wav",               1, "long.m2v: The picture at byte 150000 is predicted, and D-10 has intra pictures alone"},
        {"420.m2v stereo.wav",                1, "420.m2v: MPEG-2 video of another profile isn't D-10, which is of the 4:2:2 profile at main level"},
        {"progressive.m2v stereo.wav",        1, "progressive.m2v: MPEG-2 video of a progressive sequence isn't D-10, which is interlaced"},
        {"576.m2v stereo.wav",                1, "576.m2v: MPEG-2 video of 720 by 576 samples at 25 frames a second isn't D-10, which has 720 by 608"},
        {"50.m2v stereo.wav",                 1, "50.m2v: MPEG-2 video of 50 frames a second isn't D-10, which has 25 or 30000/1001"},
        {"20.m2v stereo.wav",                 1, "20.m2v: MPEG-2 video of 20000000 bits a second isn't D-10, which has 30, 40 or 50 million"},
        {"large.m2v stereo.wav",              1, "large.m2v: The picture at byte 150000 has 150009 bytes, and D-10 of 30 Mb/s takes 150000 at most"},
        {"good.m2v 32.wav",                   1, "32.wav: has samples of 32 bits, and D-10 takes 16 or 24"},
        {"good.m2v 44100.wav",                1, "44100.wav: has 44100 samples a second, and D-10 takes 48000"},
        {"good.m2v three.wav",                1, "three.wav: has 3 channels, and D-10 takes them in pairs"},
        {"good.m2v left.wav",                 1, "left.wav: has one channel and no other for a pair, and D-10 takes channels in pairs"},
        {"good.m2v left.wav stereo.wav",      1, "stereo.wav: has 2 channels, and the one ahead of it waits for another to make a pair"},
        {"good.m2v eight.wav stereo.wav",     1, "stereo.wav: has samples of 16 bits, and the sound ahead of it 24 bits"},
        {"good.m2v eight.wav eight.wav",      1, "eight.wav: brings the sound to 16 channels, and D-10 takes 8 at most"},
        {"good.m2v cut.wav",                  1, "cut.wav: The wave stream ends at byte 20000, 76044 bytes short of its sound"},
        {"good.m2v",                          2, "good.m2v: is alone, and --d10 takes sound beside pictures"},
        {"good.m2v good.m2v stereo.wav",      2, "good.m2v: doesn't go with --d10, which takes one stream of MPEG-2 video and waves beside it"},
        {"good.m2v stereo.wav --kag 1024",    2, "w.mxf: --d10 has a grid of 512 bytes"},
        {"good.m2v --wrapping clip",          2, "w.mxf: --d10 is op1a, and wraps by the frame"},
        {"good.m2v stereo.wav --edit-rate 24", 2, "w.mxf: good.m2v has 25/1 pictures a second, and the file 24/1"},
    };
    // clang-format on
    std::filesystem::remove(bench->scratch.path() / "w.mxf");
    for (auto const & [arguments, status, problem] : CASES)
    {
        SCOPED_TRACE(arguments);
        Ended const ended = bench->vantry("wrap --d10 -o w.mxf " + std::string(arguments));
        EXPECT_EQ(ended.status, status);
        EXPECT_EQ(ended.errors, std::string("vantry: ") + problem + "\n");
        EXPECT_FALSE(std::filesystem::exists(bench->scratch.path() / "w.mxf"));
    }
}

}}
