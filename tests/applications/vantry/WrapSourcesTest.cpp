// Essence that comes in something else, and data beside it, in files that the
// program makes: held against what ffmpeg takes out of the inputs.

#include "support/Bench.h"
#include "support/WaveFile.h"

namespace Vantry { namespace Tests {

namespace fs = std::filesystem;

namespace {

/// The bytes that ffmpeg finds in the first stream of a kind.
Bytes payloadOf(Bench const & bench, std::string const & name, std::string const & kind)
{
    bench.ffmpeg("-i " + name + " -map 0:" + kind + ":0 -c copy -f data payload");
    return bench.bytes("payload");
}

/// The picture and sound that ffmpeg decodes, in `seconds` of it.
std::string decoded(Bench const & bench, std::string const & name, std::string const & kind)
{
    return bench.ffmpeg("-i " + name + " -map 0:" + kind + ":0 -t 0.2 -f md5 -");
}

/// A packet of ancillary data with 8 bits (SMPTE 436M), on line 11.
Bytes ancillaryPacket(Bytes const & data)
{
    Bytes packet = hex("6060") + Bytes{static_cast<unsigned char>(data.size())} + data + hex("00");
    auto const number = [](std::size_t value)
    {
        return Bytes{static_cast<unsigned char>(value >> 8), static_cast<unsigned char>(value)};
    };
    std::size_t const samples = packet.size();
    packet.resize((samples + 3) / 4 * 4);
    return hex("000B 01 04") + number(samples) + hex("0000") + number(packet.size()) + hex("00000001") + packet;
}

}

TEST(WrapSources, TakesDVAndPCMOutOfAVI)
{
    VANTRY_NEEDS_FFMPEG();
    struct Case
    {
        char const * picture;
        char const * samples;
        char const * container;
        int secondLine;
        std::string index;
    };
    Case const cases[] = {
        {"s=720x480:r=30000/1001", "yuv411p", "DV-based 525x59.94I 25Mbps", 285, "vbe"},
        {"s=720x576:r=25", "yuv420p", "IEC-DV 625x50I 25Mbps", 335, "cbe"},
        {"s=720x480:r=30000/1001", "yuv422p", "DV-based 525x59.94I 50Mbps", 285, "vbe"},
        {"s=720x576:r=25", "yuv422p", "DV-based 625x50I 50Mbps", 335, "cbe"},
        {"s=960x720:r=50", "yuv422p", "DV-based 720x50P 100Mbps", 0, "cbe"},
    };
    Bench const bench;
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.container);
        bench.ffmpeg("-f lavfi -i testsrc2=d=0.2:" + std::string(c.picture) +
                     " -f lavfi -i sine=r=48000:d=1 -c:v dvvideo -pix_fmt " + c.samples + " -c:a pcm_s24le in.avi");
        bench.run("wrap --force in.avi -o in.mxf");
        EXPECT_EQ(bench.faults("in.mxf"), std::vector<std::string>());
        Json const info = bench.info("in.mxf");
        EXPECT_EQ(info["warnings"].size(), 0u) << info["warnings"];
        EXPECT_EQ(info["containers"][0]["index"]["kind"], c.index);
        Json const picture = info["packages"][1]["descriptors"][1];
        EXPECT_EQ(picture["essence_container"]["name"], "MXF-GC Frame-wrapped " + std::string(c.container));
        EXPECT_EQ(picture["properties"]["videoLineMap"][1], c.secondLine);

        bench.run("unwrap --force in.mxf -o out");
        Bytes const frames = payloadOf(bench, "in.avi", "v");
        EXPECT_EQ(bench.bytes("out/in_2.dv"), frames);
        Bytes const sound = payloadOf(bench, "in.avi", "a");
        Bytes const wave = bench.bytes("out/in_3.wav");
        EXPECT_NE(std::search(wave.begin(), wave.end(), sound.begin(), sound.begin() + 28000), wave.end());
        for (char const * kind : {"v", "a"})
            EXPECT_EQ(decoded(bench, "in.mxf", kind), decoded(bench, "in.avi", kind));

        bench.scratch.write("raw", frames);
        bench.run("wrap --force --wrapping clip raw -o raw.mxf");
        EXPECT_EQ(bench.info("raw.mxf")["containers"][0]["index"]["kind"], "cbe");
        EXPECT_EQ(decoded(bench, "raw.mxf", "v"), decoded(bench, "in.avi", "v"));
    }

    bench.run("wrap --pattern opatom in.avi -o set");
    EXPECT_EQ(bench.info("set/in_2.mxf")["packages"][0]["tracks"][1]["kind"], "picture");
    bench.ffmpeg("-f lavfi -i testsrc2=d=0.4:s=320x240:r=25 -c:v mpeg4 other.avi");
    EXPECT_EQ(bench.vantry("wrap other.avi -o x.mxf").errors,
              "vantry: other.avi: stream 0 is vids of FMP4, and DV, MPEG-2 video and PCM are taken\n");
    Bytes const whole = bench.bytes("in.avi");
    bench.scratch.write("cut.avi", whole.first(whole.size() - 1000));
    EXPECT_EQ(bench.vantry("wrap cut.avi -o x.mxf").errors,
              "vantry: cut.avi: The AVI file is cut off at byte " + std::to_string(whole.size() - 1000) + "\n");
}

// Packets with a program stream around them, and without.
TEST(WrapSources, TakesVideoOutOfPackets)
{
    VANTRY_NEEDS_FFMPEG();
    Bench const bench;
    bench.pictures("long.m2v", "s=352x288:r=25", "-g 12 -bf 2 -b:v 1M");
    bench.ffmpeg("-i long.m2v -c copy -f vob program");
    Bytes const program = bench.bytes("program");
    Bytes packets;
    for (std::size_t at = 0; at + 14 < program.size();)
    {
        bool const isPack = program[at + 3] == 0xBA;
        std::size_t const size = isPack ? 14 + (program[at + 13] & 7u) : 6u + program[at + 4] * 256 + program[at + 5];
        if (program[at + 3] == 0xE0)
            packets += Bytes(program.begin() + std::ptrdiff_t(at), program.begin() + std::ptrdiff_t(at + size));
        at += size;
    }
    bench.scratch.write("packets", packets);
    for (char const * input : {"program", "packets"})
    {
        bench.run("wrap --force -o in.mxf " + std::string(input));
        bench.run("unwrap --force in.mxf -o out");
        EXPECT_EQ(bench.bytes("out/in_2.m2v"), bench.bytes("long.m2v")) << input;
    }

    bench.ffmpeg("-i long.m2v -f lavfi -i sine=d=1 -map 0 -map 1 -c:v copy -f vob both");
    EXPECT_EQ(bench.vantry("wrap both -o x.mxf").errors,
              "vantry: both: has several streams in packets (E0h, C0h), and one is taken\n");
}

TEST(WrapSources, TakesSoundInPacketsOfS302M)
{
    VANTRY_NEEDS_FFMPEG();
    Bench const bench;
    for (std::string const format : {"-ac 2 -sample_fmt s16", "-ac 8 -sample_fmt s32"})
    {
        SCOPED_TRACE(format);
        bench.ffmpeg("-f lavfi -i sine=r=48000:d=0.4 " + format + " -c:a s302m -strict -2 -f mpegts in.ts");
        bench.scratch.write("packets", payloadOf(bench, "in.ts", "a"));
        bench.run("wrap --force packets -o in.mxf");
        EXPECT_EQ(bench.faults("in.mxf"), std::vector<std::string>());
        std::string const form = " -c:a pcm_s24le -f md5 -";
        EXPECT_EQ(bench.ffmpeg("-i in.mxf" + form), bench.ffmpeg("-i in.ts" + form));
        EXPECT_EQ(bench.info("in.mxf")["packages"][1]["descriptors"][0]["properties"]["quantizationBits"],
                  format.back() == '6' ? 16 : 24);
    }
    Bytes const whole = bench.bytes("packets");
    bench.scratch.write("cut", whole.first(whole.size() - 1));
    EXPECT_EQ(bench.vantry("wrap cut -o x.mxf").errors, "vantry: cut: The stream of sound is cut off at byte " +
                                                            std::to_string(whole.size() - 1) +
                                                            ", 1 bytes short of its packet\n");
}

TEST(WrapSources, TakesAncillaryDataForEachFrame)
{
    Bench const bench;
    // The time code 10:00:00:00 (SMPTE RP 188).
    Bytes const timeCode = hex("0000 0000 0000 0000 0000 0000 0000 1000");
    Bytes const one = hex("0001") + ancillaryPacket(timeCode);
    Bytes const two = hex("0002") + ancillaryPacket(timeCode) + ancillaryPacket(counting(255));
    Bytes const none = hex("0000");
    Bytes const packets = one + none + two + two + one;
    Bytes const line = hex("0015 01 04 02D0 000002D0 00000001") + counting(720);
    Bytes const lines = hex("0001") + line + hex("0002") + line + line;
    bench.scratch.write("packets", packets);
    bench.scratch.write("lines", lines);
    bench.scratch.write("tone.wav",
                        waveFile(waveChunk("fmt ", PCM_FORMAT) + waveChunk("data", repeated(3 * 1920 * 4, 1))));

    bench.run("wrap packets lines tone.wav -o data.mxf --partition-every 2");
    EXPECT_EQ(bench.faults("data.mxf"), std::vector<std::string>());
    Json const info = bench.info("data.mxf");
    EXPECT_EQ(info["warnings"].size(), 0u) << info["warnings"];
    Json const & descriptors = info["packages"][1]["descriptors"];
    EXPECT_EQ(descriptors[2]["class"], "ANCPacketsDescriptor");
    EXPECT_EQ(descriptors[3]["class"], "VBIDataDescriptor");
    bench.run("unwrap data.mxf -o out");
    auto const startOf = [](Bytes const & bytes, std::size_t size)
    {
        return bytes.first(std::min(size, bytes.size()));
    };
    EXPECT_EQ(startOf(packets, bench.bytes("out/data_3.bin").size()), bench.bytes("out/data_3.bin"));
    EXPECT_EQ(bench.bytes("out/data_4.bin"), lines);

    bench.run("wrap packets -o alone.mxf");
    bench.run("unwrap alone.mxf -o out");
    EXPECT_EQ(bench.bytes("out/alone_2.bin"), packets);
    bench.scratch.write("cut", packets.first(packets.size() - 1));
    EXPECT_EQ(bench.vantry("wrap cut -o x.mxf").errors,
              "vantry: cut: The element at byte " + std::to_string(packets.size() - one.size()) + " isn't whole\n");
    EXPECT_EQ(bench.vantry("wrap packets --wrapping clip -o x.mxf").status, 2);
    EXPECT_EQ(bench.vantry("wrap packets lines packets -o x.mxf").errors,
              "vantry: x.mxf: a file takes one input with such data, and packets is another\n");

    if (hasFFmpeg())
    {
        bench.pictures("long.m2v", "s=720x576:r=25", "-g 12 -bf 2");
        bench.run("wrap packets long.m2v -o beside.mxf");
        bench.run("unwrap beside.mxf -o out");
        EXPECT_EQ(bench.bytes("out/beside_3.bin"), packets + repeated(2 * 45, 0));
    }
    if (std::system("mediainfo --Version > /dev/null 2>&1") != 0)
        GTEST_SKIP() << "there is no mediainfo";
    std::string const said = bench.shell("mediainfo --Output=XML alone.mxf");
    EXPECT_NE(said.find("Ancillary data / SMPTE RP 188"), std::string::npos) << said;
}

}}
