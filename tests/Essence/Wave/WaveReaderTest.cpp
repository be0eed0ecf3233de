#include "Essence/Converters/S331MMuxHelpers/PCMWaveReader.h"

#include "support/Failure.h"
#include "support/Slices.h"
#include "support/WaveFile.h"

namespace Vantry { namespace Tests {

using DataIO::SliceSource;
using Essence::Converters::S331MMuxHelpers::PCMWaveReader;
using Essence::Wave::WaveReader;
using Templates::SharedPtr;

namespace {

SharedPtr<SliceSource> pieces(CountingBlocks & blocks, std::vector<Bytes> const & bytes)
{
    return SharedPtr<SliceSource>(new PieceSource(blocks, bytes));
}

// Keeps what the handlers are told.
class Listening : public WaveReader
{
public:
    using WaveReader::WaveReader;

    void handleFormatChunk(UInt64 length) override { log += "fmt " + std::to_string(length) + ";"; }

    // Takes a part of the chunk only.
    void handleBroadcastExtensionChunk(UInt64 length) override
    {
        log += "bext " + std::to_string(length) + ":" + std::to_string(reader().readAligned(1)->begin()[0]) + ";";
    }

    void handleDataChunkBegin(UInt64 length) override { log += "data " + std::to_string(length) + ";"; }

    void handleUnknownChunk(Templates::basic_string<unsigned char> const & id, UInt64 length) override
    {
        log += std::string(id.begin(), id.end()) + " " + std::to_string(length) + ";";
    }

    std::string log;
};

template <class Reader>
Bytes drained(Reader & reader, UInt64 size)
{
    Bytes all;
    while (!reader.endOfStream())
    {
        Bytes const some = bytesOf(*reader.read(size));
        all += some;
        if (reader.state() == WaveReader::STATE_INVALID || reader.state() == WaveReader::STATE_END_OF_STREAM)
            break;
    }
    return all;
}

}

TEST(WaveReader, GivesTheDataOfAWave)
{
    Bytes const format = waveChunk("fmt ", PCM_FORMAT);
    Bytes const sizes = littleEndian(0, 8) + littleEndian(6, 8) + repeated(12, 0);
    std::tuple<char const *, Bytes, Bytes, std::string> const cases[] = {
        {"empty stream", {}, {}, ""},
        {"no wave", waveFile({}, "FORM"), {}, ""},
        {"head cut off", waveFile({}).first(11), {}, ""},
        {"plain", waveFile(format + waveChunk("data", counting(6, 1))), counting(6, 1), "fmt 16;data 6;"},
        {"other chunks and padding",
         waveFile(waveChunk("bext", counting(5, 7)) + hex("00") + format + waveChunk("LIST", counting(3, 1)) +
                  hex("00 00 00 00 00 00 00 00 00 00 00") + waveChunk("data", counting(4, 1))),
         counting(4, 1), "bext 5:7;fmt 16;LIST 3;data 4;"},
        {"unknown length", waveFile(waveChunk("data", counting(9), 0xFFFFFFFF)), counting(9), "data 4294967295;"},
        {"less than a chunk behind", waveFile(waveChunk("data", counting(9)) + hex("414243")), counting(9), "data 9;"},
        {"data cut off", waveFile(waveChunk("data", counting(9), 100)), counting(9), "data 100;"},
        {"only the first data", waveFile(waveChunk("data", counting(2)) + waveChunk("data", counting(40))), counting(2),
         "data 2;data 40;"},
        {"length of more than 32 bits",
         waveFile(waveChunk("ds64", sizes) + waveChunk("data", counting(6), 0xFFFFFFFF) + waveChunk("fmt ", {}),
                  "RF64"),
         counting(6), "data 6;fmt 0;"},
        {"lengths cut off", waveFile(waveChunk("ds64", sizes.first(15), 28), "RF64"), {}, ""},
    };

    std::mt19937 random(1);
    for (auto const & [name, stream, data, log] : cases)
        for (UInt64 const size : {1, 4, 1000})
        {
            SCOPED_TRACE(name);
            CountingBlocks blocks;
            Listening reader(pieces(blocks, cutAtRandom(stream, 9, random)));
            EXPECT_EQ(drained(reader, size), data);
            EXPECT_EQ(reader.absoluteOffset(), data.size());
            EXPECT_EQ(reader.log, log);
            EXPECT_TRUE(reader.state() == WaveReader::STATE_INVALID || reader.endOfStream());
        }
}

TEST(WaveReader, SkipsWithinTheData)
{
    CountingBlocks blocks;
    Bytes const stream = waveFile(waveChunk("data", counting(10)) + waveChunk("LIST", counting(10)));
    WaveReader reader(pieces(blocks, {stream}));

    EXPECT_EQ(reader.skip(4), 4u);
    EXPECT_EQ(bytesOf(*reader.read(2)), counting(2, 4));
    EXPECT_EQ(reader.skip(100), 4u) << "none behind the chunk";
    EXPECT_EQ(reader.absoluteOffset(), 10u);
    EXPECT_FALSE(reader.endOfStream());
    EXPECT_EQ(reader.skip(1), 0u);
    EXPECT_TRUE(reader.endOfStream()) << "or a loop of skips would have no end";
    EXPECT_EQ(reader.state(), WaveReader::STATE_END_OF_STREAM);
    EXPECT_EQ(reader.read(5)->size(), 0u);
}

TEST(PCMWaveReader, KnowsTheFormat)
{
    Bytes const extensible = hex("FEFF 0600 80BB0000 E0930C00 1200 1800 1600 1400 3F000000"
                                 "0100 0000 0000 1000 8000 00AA 0038 9B71");
    Bytes const data = waveChunk("data", counting(4));

    CountingBlocks blocks;
    PCMWaveReader reader(pieces(blocks, {waveFile(waveChunk("LIST", {}) + waveChunk("fmt ", extensible) + data)}));
    ASSERT_TRUE(reader.preload());
    EXPECT_EQ(reader.bitsPerSample(), 24);
    EXPECT_EQ(reader.validBitsPerSample(), 20);
    EXPECT_EQ(reader.numberOfChannels(), 6);
    EXPECT_EQ(reader.numberBlockAlign(), 18);
    EXPECT_EQ(reader.samplesPerSecond(), 48000u);
    EXPECT_EQ(reader.avgBytesPerSecond(), 824288u);
    EXPECT_EQ(bytesOf(*reader.read(9)), counting(4));

    PCMWaveReader plain(pieces(blocks, {waveFile(waveChunk("fmt ", PCM_FORMAT) + data)}));
    ASSERT_TRUE(plain.preload());
    EXPECT_EQ(plain.validBitsPerSample(), 16);
    EXPECT_FALSE(PCMWaveReader(pieces(blocks, {waveFile(data + waveChunk("fmt ", PCM_FORMAT))})).preload());
    EXPECT_FALSE(PCMWaveReader(pieces(blocks, {data})).preload());
}

TEST(PCMWaveReader, RefusesWhatIsNoPCM)
{
    CountingBlocks blocks;
    auto const load = [&](Bytes const & format, UInt64 length)
    {
        PCMWaveReader(pieces(blocks, {waveFile(waveChunk("fmt ", format, length))})).preload();
    };

    Bytes const extensible = hex("FEFF") + repeated(38, 0);
    EXPECT_FAILURE(InvalidFormat,
                   "chunkLength >= sizeof (FormatBaseChunk): Wave file Format chunk is shorter than expected",
                   load(PCM_FORMAT, 13));
    EXPECT_FAILURE(InvalidFormat,
                   "formatChunk -> size () >= sizeof (FormatPCMChunk): "
                   "Wave file Format PCM chunk is shorter than expected",
                   load(PCM_FORMAT, 15));
    EXPECT_FAILURE(InvalidFormat,
                   "formatChunk -> size () >= sizeof (FormatExtensibleChunk): "
                   "Wave file Format Extensible chunk is shorter than expected",
                   load(extensible, 39));
    EXPECT_FAILURE(InvalidFormat,
                   "::memcmp (format -> subFormat, FORMAT_EXTENSIBLE_PCM_LABEL, sizeof (FORMAT_EXTENSIBLE_PCM_LABEL)) "
                   "== 0: Wave file does not contain PCM essence",
                   load(extensible, 40));
    EXPECT_FAILURE(InvalidFormat, "Wave file does not contain PCM essence", load(hex("0300") + repeated(14, 0), 16));
    EXPECT_THROW(load(PCM_FORMAT, 0xFFFFFFFF), Exceptions::NotEnoughData);
}

}}
