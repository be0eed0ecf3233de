#include "Essence/AVI/AVIReader.h"

#include "DataIO/SliceReader.h"
#include "support/FFmpeg.h"
#include "support/Failure.h"
#include "support/Slices.h"
#include "support/WaveFile.h"

#include <map>

namespace Vantry { namespace Tests {

using namespace Essence::AVI;

Bytes list(std::string const & type, Bytes const & chunks, std::string const & id = "LIST")
{
    return waveChunk(id, Bytes(type.begin(), type.end()) + chunks);
}

Bytes padded(std::string const & id, Bytes const & value)
{
    return waveChunk(id, value) + repeated(value.size() % 2, 0);
}

Bytes streamHeader(std::string const & type, std::string const & handler)
{
    return waveChunk("strh", Bytes(type.begin(), type.end()) + Bytes(handler.begin(), handler.end()) + repeated(48, 0));
}

Bytes const PICTURE = list("strl", streamHeader("vids", "dvsd") + waveChunk("strf", counting(40)) +
                                       padded("strn", counting(3)) + waveChunk("vprp", counting(8)));
Bytes const SOUND = list("strl", streamHeader("auds", std::string(4, 0)) + padded("strf", PCM_FORMAT + hex("00")));
Bytes const HEADERS = list("hdrl", waveChunk("avih", littleEndian(40000, 4) + repeated(52, 7)) + PICTURE + SOUND +
                                       waveChunk("JUNK", counting(20)) + list("odml", waveChunk("dmlh", counting(4))));

// Everything that the streams hold, by the identifier of the chunks.
std::map<unsigned int, Bytes> payloadsOf(AVIReader & avi)
{
    std::map<unsigned int, Bytes> payloads;
    unsigned int id = 0;
    for (DataIO::Chain chain; avi.read(id, chain); chain.clear())
        payloads[id] += bytesOf(chain);
    return payloads;
}

TEST(AVIReader, GivesTheChunksOfAllRiffs)
{
    Bytes const first =
        padded("00dc", hex("01 02 03")) + waveChunk("JUNK", hex("0000")) + waveChunk("01wb", hex("A1A2"));
    Bytes const grouped = list("rec ", padded("00dc", hex("04")) + padded("01wb", hex("A3")));
    Bytes const index = waveChunk("idx1", Bytes{'0', '1', 'w', 'b'} + repeated(12, 0));
    Bytes const file =
        list("AVI ", HEADERS + list("INFO", padded("ISFT", counting(5))) + list("movi", first + grouped) + index,
             "RIFF") +
        list("AVIX", list("movi", padded("00dc", hex("05"))), "RIFF");

    std::mt19937 random(2);
    CountingBlocks blocks;
    for (UInt64 longest : {5000, 1, 13})
    {
        DataIO::SliceReader reader(pieceSource(blocks, cutAtRandom(file, longest, random)));
        AVIReader avi(reader);
        MainHeader const * const header = avi.initialize();
        ASSERT_NE(header, nullptr);
        EXPECT_EQ(header->microSecPerFrame, 40000u);
        ASSERT_EQ(avi.streamCount(), 2u);
        EXPECT_EQ(payloadsOf(avi), (std::map<unsigned int, Bytes>{{fourCC("00dc"), hex("01 02 03 04 05")},
                                                                  {fourCC("01wb"), hex("A1 A2 A3")}}));
    }
}

TEST(AVIReader, TellsWhatStreamsAre)
{
    auto const superIndex = [](std::string const & id)
    {
        return waveChunk("indx", hex("0400 00 00 01000000") + Bytes(id.begin(), id.end()) + repeated(12, 0));
    };
    Bytes const streams = PICTURE + SOUND + list("strl", streamHeader("iavs", "dvsd") + superIndex("07__")) +
                          list("strl", streamHeader("auds", std::string(4, 0)));
    Bytes const index =
        waveChunk("idx1", Bytes{'0', '3', 'w', 'b'} + repeated(12, 0) + Bytes{'w', 'b', '0', '1'} + repeated(12, 0));
    CountingBlocks blocks;
    DataIO::SliceReader reader(pieceSource(
        blocks,
        {list("AVI ", list("hdrl", waveChunk("avih", repeated(56, 0)) + streams) + index + list("movi", {}), "RIFF")}));
    AVIReader avi(reader);
    ASSERT_NE(avi.initialize(), nullptr);

    struct Case
    {
        unsigned int type, format;
        char const *number, *rotated;
    };

    Case const cases[] = {
        {fourCC("vids"), 0x13121110, "00", "00"},
        {fourCC("auds"), 1, "01", "01"},
        {fourCC("iavs"), fourCC("dvsd"), "07", "__"},
        {fourCC("auds"), 0, "03", "01"},
    };
    for (unsigned int n = 0; n < 4; ++n)
        for (bool const rotate : {false, true})
        {
            SCOPED_TRACE(n);
            avi.rotateStreamNumberMask(rotate);
            EXPECT_EQ(avi.rotateStreamNumberMask(), rotate);
            STREAMInfo const info = avi.info(n);
            EXPECT_EQ(info.type, cases[n].type);
            EXPECT_EQ(info.format, cases[n].format);
            char const * const number = rotate ? cases[n].rotated : cases[n].number;
            EXPECT_EQ(info.streamNumber, number[0] | number[1] << 8);
        }
    EXPECT_FAILURE(IndexOutOfBounds, "Invalid AVI stream.", avi.info(4));
}

TEST(AVIReader, RefusesWhatIsNone)
{
    Bytes const movie = list("movi", waveChunk("00dc", counting(8)));
    Bytes const whole = list("AVI ", HEADERS + movie, "RIFF");
    std::pair<char const *, Bytes> const cases[] = {
        {"nothing", {}},
        {"a wave", list("WAVE", HEADERS + movie, "RIFF")},
        {"no RIFF around it", HEADERS + movie},
        {"RIFF within RIFF", list("AVI ", whole, "RIFF")},
        {"no main header", list("AVI ", movie, "RIFF")},
        {"a short main header", list("AVI ", list("hdrl", waveChunk("avih", counting(20))) + movie, "RIFF")},
        {"a format ahead of its stream", list("AVI ", list("hdrl", list("strl", waveChunk("strf", {}))), "RIFF")},
        {"cut in the headers", whole.first(200)},
    };
    CountingBlocks blocks;
    for (auto const & [name, bytes] : cases)
    {
        DataIO::SliceReader reader(pieceSource(blocks, {bytes}));
        EXPECT_EQ(AVIReader(reader).initialize(), nullptr) << name;
    }

    DataIO::SliceReader reader(pieceSource(blocks, {whole.first(whole.size() - 1)}));
    AVIReader avi(reader);
    ASSERT_NE(avi.initialize(), nullptr);
    unsigned int id = 0;
    DataIO::Chain chain;
    EXPECT_FALSE(avi.read(id, chain)) << "the value is cut off";
}

TEST(AVIReader, GivesThePayloadsOfWhatFFmpegWrites)
{
    VANTRY_NEEDS_FFMPEG();
    FFmpegFile const avi("-f lavfi -i testsrc2=s=720x576:r=25:d=0.4 -f lavfi -i sine=r=48000:d=0.4"
                         " -c:v dvvideo -pix_fmt yuv420p -c:a pcm_s16le -ac 2 -f avi");
    FFmpegFile const picture("-i " + avi.path().string() + " -map 0:v -c copy -f rawvideo");
    FFmpegFile const sound("-i " + avi.path().string() + " -map 0:a -c copy -f s16le");

    CountingBlocks blocks;
    DataIO::SliceReader reader(pieceSource(blocks, {avi.content()}));
    AVIReader parsed(reader);
    ASSERT_NE(parsed.initialize(), nullptr);
    EXPECT_EQ(parsed.info(0).format, fourCC("dvsd"));
    EXPECT_EQ(parsed.info(1).format, 1u);
    EXPECT_EQ(payloadsOf(parsed),
              (std::map<unsigned int, Bytes>{{fourCC("00dc"), picture.content()}, {fourCC("01wb"), sound.content()}}));
}

}}
