#include "Essence/JPEG2000/Header.h"

#include "DataIO/SliceReader.h"
#include "DataIO/SyncWordFinder.h"
#include "Essence/JPEG2000/Markers.h"
#include "support/FFmpeg.h"
#include "support/Failure.h"
#include "support/Slices.h"

namespace Vantry { namespace Tests {

using namespace Essence::JPEG2000;

// A header, read from a stream in pieces.
struct HeaderOf : CodestreamHeader
{
    HeaderOf(CountingBlocks & blocks, std::vector<Bytes> const & pieces) : reader(pieceSource(blocks, pieces)) {}

    Bytes read() { return bytesOf(*readHeader(*this, finder, reader)); }

    DataIO::SliceReader reader;
    DataIO::SyncWordFinder finder{reader, 0xFF, 0xFF};
};

Bytes const START = hex("FF4F"
                        "FF51 002C 0003 00000780 00000438 00000001 00000002 00000780 00000438 00000000 00000000"
                        "0002 07 01 01 87 02 01");
Bytes const STYLE = hex("FF52 000C 00 02 0001 01 05 04 04 00 01");
Bytes const QUANTISATION = hex("FF5C 0007 40 48 48 50 50");
Bytes const TILE_PART = hex("FF90 000A 0003 00001234 01 02");
Bytes const DATA = hex("FF93");

TEST(JPEG2000Header, IsReadUpToTheDataOfATilePart)
{
    Bytes const more = hex("FF30 FF66 0004 FF52" // unknown ones
                           "FF55 0004 0102 FF63 0006 0001 0002 FF64 0005 000141"
                           "00 11 22 33"); // and bytes that are none
    Bytes const header = START + STYLE + more + QUANTISATION + TILE_PART + hex("FF58 0003 7F FF61 0003 00") + DATA;
    std::mt19937 random(1);
    CountingBlocks blocks;
    for (UInt64 longest : {1000, 1, 5})
    {
        HeaderOf of(blocks, cutAtRandom(header + hex("FF91 55"), longest, random));
        EXPECT_EQ(of.read(), header);
        EXPECT_EQ(of.state, STATE_TILE_DATA);
        EXPECT_FALSE(of.invalid);
        EXPECT_EQ(of.read(), Bytes());
        EXPECT_EQ(bytesOf(*of.reader.read(9)), hex("FF91 55"));

        EXPECT_EQ(of.imageTileSize.lsiz, 44);
        EXPECT_EQ(of.imageTileSize.rsiz, 3);
        EXPECT_EQ(of.imageTileSize.xsiz, 1920u);
        EXPECT_EQ(of.imageTileSize.ysiz, 1080u);
        EXPECT_EQ(of.imageTileSize.xOsiz, 1u);
        EXPECT_EQ(of.imageTileSize.yOsiz, 2u);
        ASSERT_EQ(of.imageTileSize.components.size(), 2u);
        EXPECT_EQ(of.imageTileSize.components[1].ssiz, 0x87);
        EXPECT_EQ(of.imageTileSize.components[1].xRsiz, 2);
        EXPECT_EQ(of.codingStyleDefault.sGcod[3], 1);
        EXPECT_EQ(of.codingStyleDefault.sPcod, (Templates::vector<unsigned char>{5, 4, 4, 0, 1}));
        EXPECT_EQ(of.quantisationDefault.sqcd, 0x40);
        EXPECT_EQ(of.quantisationDefault.sPgcd.size(), 4u);
        EXPECT_EQ(of.startOfTilePart.isot, 3);
        EXPECT_EQ(of.startOfTilePart.psot, 0x1234u);
        EXPECT_EQ(of.startOfTilePart.tnsot, 2);
        ASSERT_EQ(of.componentRegistration.offsets.size(), 1u);
        EXPECT_EQ(of.componentRegistration.offsets[0].ycrg, 2);
        EXPECT_EQ(of.segments.componentRegistrations.size(), 1u);
        ASSERT_EQ(of.segments.comments.size(), 1u);
        EXPECT_EQ(of.segments.comments.front().value, (Templates::vector<unsigned char>{0, 1, 0x41}));
        EXPECT_EQ(of.segments.packetLengths.size(), 1u);
        EXPECT_EQ(of.segments.packedPacketHeaders.size(), 1u);
        EXPECT_EQ(of.segments.others.size(), 2u) << "an unknown one and the lengths of tile parts";
    }
}

TEST(JPEG2000Header, RefusesWhatIsNone)
{
    std::tuple<char const *, Bytes, bool, JPEG2k_STATE> const cases[] = {
        {"nothing", {}, false, STATE_START},
        {"no marker near", repeated(5000, 0) + START, false, STATE_START},
        {"another marker first", hex("FF51 0004 0000"), true, STATE_START},
        {"no size", hex("FF4F FF52 0004 0000"), true, STATE_IMAGE_SIZE},
        {"a length that leaves itself out", START + hex("FF64 0001"), true, STATE_MAIN_HEADER},
        {"main header in a tile part", START + TILE_PART + hex("FF55 0004 0000"), true, STATE_TILE_PART_HEADER},
        {"end ahead of data", START + hex("FFD9 0000"), false, STATE_TILE_DATA},
    };
    CountingBlocks blocks;
    for (auto const & [name, stream, invalid, state] : cases)
    {
        SCOPED_TRACE(name);
        HeaderOf of(blocks, {stream});
        of.read();
        EXPECT_EQ(of.invalid, invalid);
        EXPECT_EQ(of.state, state);
    }

    auto const read = [&blocks](Bytes const & stream)
    {
        HeaderOf(blocks, {stream}).read();
    };
    std::string const style = ": Coding Style Default has an invalid SPcod value.";
    EXPECT_FAILURE(InvalidFormat, ("lcod > (sizeof (lcod) + sizeof (scod) + sizeof (sGcod))" + style).c_str(),
                   read(START + hex("FF52 0007 00 00 0001 00")));
    EXPECT_FAILURE(InvalidFormat, ("spcodSize >= MINIMUM_CODINGSTYLEDEFAULT_SPCOD_SIZE" + style).c_str(),
                   read(START + hex("FF52 000B 00 00 0001 00 05 04 04 00")));
    EXPECT_FAILURE(InvalidFormat,
                   "lqcd > (sizeof (lqcd) + sizeof (sqcd)): Quantisation Default has an invalid SPgcd value.",
                   read(START + hex("FF5C 0003 40")));
    EXPECT_FAILURE(InvalidFormat, "Image and tile size doesn't have the length of its components",
                   read(hex("FF4F FF51 0026") + repeated(35, 0) + hex("01")));
    EXPECT_FAILURE(InvalidFormat, "Start of tile part doesn't have its length", read(START + hex("FF90 0004 0000")));
    EXPECT_FAILURE(NotEnoughData, "Not enough data to read from the source", read(START + hex("FF64 0100 00")));
}

TEST(JPEG2000Header, MarkersMoveTheState)
{
    JPEG2k_STATE state = STATE_START;
    EXPECT_FALSE(checkMarker(state, SIZ));
    EXPECT_EQ(state, STATE_START);

    std::pair<Marker, JPEG2k_STATE> const steps[] = {
        {SOC, STATE_IMAGE_SIZE},
        {SIZ, STATE_MAIN_HEADER},
        {COM, STATE_MAIN_HEADER},
        {SOT, STATE_TILE_PART_HEADER},
        {PLT, STATE_TILE_PART_HEADER},
        {SOD, STATE_TILE_DATA},
        {SOP, STATE_TILE_DATA},
        {SOT, STATE_NEXT_TILE_PART},
        {SOT, STATE_NEXT_TILE_PART},
        {SOD, STATE_NEXT_TILE_PART_DATA},
        {SOT, STATE_NEXT_TILE_PART},
        {SOD, STATE_NEXT_TILE_PART_DATA},
        {EOC, STATE_START},
    };
    for (auto const & [marker, next] : steps)
    {
        EXPECT_TRUE(checkMarker(state, marker)) << int(marker);
        EXPECT_EQ(state, next);
    }

    state = static_cast<JPEG2k_STATE>(7);
    EXPECT_FALSE(checkMarker(state, SOC));
    state = STATE_NEXT_TILE_PART_DATA;
    EXPECT_FALSE(checkMarker(state, SOP));
}

TEST(JPEG2000Header, ReadsWhatFFmpegWrites)
{
    VANTRY_NEEDS_FFMPEG();
    FFmpegFile const file("-f lavfi -i testsrc2=s=176x144 -frames:v 1 -pix_fmt yuv422p -c:v jpeg2000 -f image2");
    CountingBlocks blocks;
    HeaderOf of(blocks, {file.content()});
    of.read();
    EXPECT_EQ(of.state, STATE_TILE_DATA);
    EXPECT_EQ(of.imageTileSize.xsiz, 176u);
    EXPECT_EQ(of.imageTileSize.components.at(1).xRsiz, 2);
    EXPECT_EQ(of.startOfTilePart.tpsot, 0);
}

}}
