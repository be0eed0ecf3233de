#include "Analyzers/DVAnalyzer.h"

#include "Analyzers/AVIStream.h"
#include "support/AVIFile.h"
#include "support/AnalyzedEssence.h"
#include "support/DVFrame.h"
#include "support/Failure.h"

namespace Vantry { namespace Tests {

using Analyzers::AVIStream;
using Analyzers::DVAnalyzer;
using Metadata::Structural::CDCIEssenceDescriptor;
using Rate = Templates::Rational<int>;

class DVAnalyzerTest : public testing::Test
{
protected:
    Templates::SharedPtr<DataIO::SliceSource> source(Bytes const & stream, UInt64 longest = 50000)
    {
        return pieceSource(blocks_, cutAtRandom(stream, longest, random_));
    }

    /// What an AVI file gives of one stream, and how that ends.
    std::pair<Bytes, std::string> streamIn(Bytes const & file, unsigned int number)
    try
    {
        DataIO::SliceReader reader(
            Templates::SharedPtr<DataIO::SliceSource>(new AVIStream(source(file, 1000), number)));
        DataIO::Chain chain;
        reader.read(1000000, chain);
        return {bytesOf(chain), reader.endOfStream() ? "" : "goes on"};
    }
    catch (Exceptions::InvalidFormat const & failure)
    {
        return {{}, Platform::wstringToString(failure.message()).c_str()};
    }

    std::mt19937 random_{9};
    CountingBlocks blocks_;
};

TEST_F(DVAnalyzerTest, GoesByTheHeadersOfTheFirstFrame)
{
    struct Case
    {
        char const * name;
        Bytes frame;
        int container;
        Bytes coding;
        Rate rate;
        std::string start;
    };
    Bytes const wide = hex("61 3F CA FC FF");
    Case const cases[] = {
        {"525", dvFrame(120000, 0x3F, 0, 0), 1, hex("0101"), {30000, 1001}, ""},
        {"525, drop frame",
         dvFrame(120000, 0x3F, 1, 0, 1, wide, hex("13 42 01 02 10")),
         0x40,
         hex("0201"),
         {30000, 1001},
         "10:02:01:02 (DF)"},
        {"625", dvFrame(144000, 0xBF, 0, 0, 2, wide, hex("13 64 59 59 23")), 2, hex("0102"), 25, "23:59:59:24"},
        {"625, no time of day", dvFrame(144000, 0xBF, 1, 0, 2, wide, hex("13 25 59 59 23")), 0x41, hex("0202"), 25, ""},
        {"525, 50 Mb/s", dvFrame(240000, 0x3F, 1, 4), 0x50, hex("0203"), {30000, 1001}, ""},
        {"625, 50 Mb/s", dvFrame(288000, 0xBF, 1, 4), 0x51, hex("0204"), 25, ""},
        {"1080", dvFrame(576000, 0xBF, 1, 0x14), 0x61, hex("0206"), 25, ""},
        {"720", dvFrame(240000, 0x3F, 1, 0x18), 0x62, hex("0207"), {60000, 1001}, ""},
    };
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.name);
        DVAnalyzer analyzer(source(c.frame + c.frame), DVAnalyzer::Labels::CLIP);
        analyzer.editRate(24);
        ASSERT_TRUE(analyzer.preload());
        EXPECT_EQ(analyzer.editRate(), c.rate);
        std::ostringstream start;
        if (analyzer.currentTimeCode().isDefined())
            start << analyzer.currentTimeCode();
        EXPECT_EQ(start.str(), c.start);
        EXPECT_EQ(analyzer.boundedEditUnitSize(), c.frame.size());

        DescribedEssence essence;
        ASSERT_TRUE(essence.describe(analyzer));
        auto const & picture = essence.descriptor<CDCIEssenceDescriptor>();
        EXPECT_EQ((*picture.essenceContainer())[14], c.container);
        EXPECT_EQ((*picture.essenceContainer())[15], 2);
        EXPECT_EQ((*picture.pictureEssenceCoding())[13], c.coding[0]);
        EXPECT_EQ((*picture.pictureEssenceCoding())[14], c.coding[1]);
        bool const isWide = !c.start.empty() || c.container == 0x41 || c.container > 0x60;
        EXPECT_EQ(*picture.aspectRatio(), isWide ? Types::Rational(16, 9) : Types::Rational(4, 3));
        EXPECT_NE(picture.videoLineMap(0)->value(), 0);

        std::vector<Unit> const units = unitsOf(analyzer);
        ASSERT_EQ(units.size(), 2u);
        EXPECT_EQ(units[1].data, c.frame);
        EXPECT_EQ(units[1].duration, Rate(1) / c.rate);
        EXPECT_TRUE(analyzer.done());
        EXPECT_TRUE(analyzer.finalize());
        EXPECT_EQ(essence.duration(), 2);
    }
}

TEST_F(DVAnalyzerTest, TellsWhereAStreamIsDamaged)
{
    Bytes const frame = dvFrame(144000, 0xBF, 0, 0);
    std::pair<char const *, Bytes> const cases[] = {
        {"DV has no frame at byte 144000", repeated(144000, 0)},
        {"DV has a frame of another format than the first at byte 144000", dvFrame(288000, 0xBF, 1, 4)},
        {"DV is cut off in a frame at byte 144001", frame.first(1)},
        {"DV is cut off in a frame at byte 287999", frame.first(143999)},
    };
    for (auto const & [text, rest] : cases)
    {
        DVAnalyzer analyzer(source(frame + rest));
        EXPECT_FAILURE(InvalidFormat, text, unitsOf(analyzer));
    }
    EXPECT_FALSE(DVAnalyzer(source(frame.first(479))).preload());
    DVAnalyzer unknown(source(dvFrame(144000, 0xBF, 1, 9)));
    EXPECT_FAILURE(InvalidFormat, "DV has a signal of no known type", unknown.preload());
}

TEST_F(DVAnalyzerTest, ReadsAStreamOfAnAVIFile)
{
    Bytes const streams = aviStream("vids", counting(40)) + aviStream("auds", PCM_FORMAT);
    Bytes const chunks = waveChunk("00dc", counting(6)) + waveChunk("00pc", counting(2)) + waveChunk("ix00", {}) +
                         waveChunk("01wb", hex("A1A2")) + waveChunk("00dc", {}) + waveChunk("00db", hex("0708"));
    Bytes const file = aviFile(streams, chunks);
    EXPECT_EQ(streamIn(file, 0).first, counting(6) + hex("0708"));
    EXPECT_EQ(streamIn(file, 1).first, hex("A1A2"));

    std::string const size = std::to_string(file.size() - 1);
    EXPECT_EQ(streamIn(file.first(file.size() - 1), 1).second, "The AVI file is cut off at byte " + size);
    std::size_t const withoutLast = file.size() - 10;
    EXPECT_EQ(streamIn(file.first(withoutLast), 0).second,
              "The AVI file is cut off at byte " + std::to_string(withoutLast));
    EXPECT_EQ(streamIn(file, 2).second, "The AVI file has no stream 2");
    EXPECT_EQ(streamIn(file.first(30), 0).second, "The AVI file has no headers up to byte 30");
    EXPECT_EQ(streamIn(file + hex("5249464600000000414243440000"), 0).second.substr(0, 31),
              "The AVI file is damaged at byte");
}

}}
