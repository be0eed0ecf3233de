#include "Essence/MPEG/PESParser.h"

#include "DataIO/SliceReader.h"
#include "Essence/MPEG/PESHeader.h"
#include "support/FFmpeg.h"
#include "support/Failure.h"
#include "support/QueuedBytes.h"
#include "support/Slices.h"

namespace Vantry { namespace Tests {

using namespace Essence::MPEG;

UInt64 const PLENTY = 65536;

// A PES packet; `length` is told in place of the true one.
Bytes pes(unsigned char id, Bytes const & headerAndPayload, std::size_t length)
{
    return Bytes{0, 0, 1, id, static_cast<unsigned char>(length >> 8), static_cast<unsigned char>(length)} +
           headerAndPayload;
}

Bytes pes(unsigned char id, Bytes const & headerAndPayload)
{
    return pes(id, headerAndPayload, headerAndPayload.size());
}

Bytes const PACK_HEADER = hex("000001BA 44 00 04 00 04 01 01 89 C3 F8  000001BB 0006 80C4E1 00E17F");
Bytes const PTS_OF_1 = hex("81 80 05 21 00 01 00 03");

Bytes payloadOf(PESParser & parser)
{
    UInt64 const start = parser.absoluteOffset();
    Bytes payload;
    while (!parser.endOfStream())
        if (auto const slice = parser.read(1); slice.get() != nullptr)
        {
            payload += bytesOf(*slice);
            EXPECT_EQ(parser.absoluteOffset(), start + payload.size());
        }
    return payload;
}

TEST(PESHeader, IsReadInBothForms)
{
    UInt64 const NONE = 99;
    std::tuple<char const *, char const *, unsigned int, UInt64, unsigned short> const cases[] = {
        {"MPEG-1, none", "0F", 1, NONE, 0},
        {"MPEG-1, stuffing and buffer", "FF FF 60 2E 0F", 5, NONE, 0},
        {"MPEG-1, time stamp of all bits", "FF 2F FF FF FF FF", 6, 0x1FFFFFFFF, 0},
        {"MPEG-1, two time stamps", "33 00 03 00 05 11 00 01 00 01", 10, (1 << 30) + 32768 + 2, 0},
        {"MPEG-1, no kind of time stamp", "12", 1, NONE, 0},
        {"MPEG-2, none", "80 00 00", 3, NONE, 0},
        {"MPEG-2, flags but no time stamp", "8F 3F 04 21 00 01 00", 7, NONE, 0},
        {"MPEG-2, time stamp", "81 80 05 21 00 01 00 03", 8, 1, 0},
        {"MPEG-2, two and stuffing", "81 C0 0C 31 00 01 00 07 11 00 01 00 01 FF FF", 15, 3, 0},
        {"MPEG-2, longer than it claims", "81 80 02 21 00 01 00 05", 8, 2, 0},
        {"up to the end of the packet", "FF FF FF", 3, NONE, 3},
        {"time stamp beyond its packet", "81 80 05 21 00", 5, NONE, 5},
        {"length beyond its packet", "81 00 FF AA", 4, NONE, 4},
    };
    CountingBlocks blocks;
    std::mt19937 random(1);
    Bytes const behind = hex("21 FF 21 00 01");
    for (auto const & [name, header, size, wantedPTS, packetLength] : cases)
        for (UInt64 const longest : {100, 1, 3})
        {
            SCOPED_TRACE(name);
            DataIO::SliceReader reader(pieceSource(blocks, cutAtRandom(hex(header) + behind, longest, random)));
            header_PACKET packet;
            packet.packetLength[1] = static_cast<unsigned char>(packetLength);
            UInt64 pts = NONE;
            EXPECT_EQ(readHeader(reader, longest == 1 || packetLength != 0 ? &packet : nullptr, pts), size);
            EXPECT_EQ(pts, wantedPTS);
            EXPECT_EQ(bytesOf(*reader.read(100)), behind);
        }

    for (char const * const cut : {"FF FF", "40", "21 00 01 00", "81", "81 80", "81 80 05 21 00", "81 00 05 00"})
    {
        SCOPED_TRACE(cut);
        Bytes const bytes = hex(cut);
        DataIO::SliceReader reader(queuedBytes(bytes.data(), bytes.size()));
        UInt64 pts = NONE;
        EXPECT_EQ(readHeader(reader, nullptr, pts), bytes.size());
        EXPECT_EQ(pts, NONE);
    }
}

TEST(PESParser, GivesThePayloadOfTheFirstStream)
{
    Bytes const other = pes(0xC0, PTS_OF_1 + counting(200));

    std::tuple<char const *, Bytes, Bytes, Bytes> const cases[] = {
        {"other streams between packets",
         PACK_HEADER + pes(0xE0, PTS_OF_1 + counting(9)) + other + PACK_HEADER + pes(0xE0, hex("0F A1 A2")) +
             hex("000001B9"),
         counting(9) + hex("A1A2"), counting(9) + other + PACK_HEADER + hex("A1A2")},
        {"no optional header", pes(0xBE, PTS_OF_1 + counting(3)) + hex("77") + pes(0xBE, hex("0F")),
         PTS_OF_1 + counting(3) + hex("0F"), PTS_OF_1 + counting(3) + hex("77 0F")},
        {"private data", pes(0xBD, hex("80 00 00 81 82")), hex("81 82"), hex("81 82")},
        {"header without payload", pes(0xE0, PTS_OF_1) + pes(0xE0, PTS_OF_1 + hex("33")), hex("33"), hex("33")},
        {"header beyond its packet", pes(0xE0, hex("81 80 05 21 00")) + pes(0xE0, hex("0F 55")), hex("55"), hex("55")},
        {"cut off", pes(0xE0, hex("0F 01 02"), 40), hex("01 02"), hex("01 02")},
        {"cut off in the start", pes(0xE0, hex("0F 01")) + hex("000001E0 00"), hex("01"), hex("01")},
        {"open lengths",
         pes(0xE0, PTS_OF_1 + counting(5), 0) + pes(0xE0, hex("0F"), 0) + pes(0xE0, hex("0F 07 000001C0 08 000001"), 0),
         counting(5) + hex("07 000001C0 08 000001"), counting(5) + hex("07 000001C0 08 000001")},
        {"bytes ahead of an open length", pes(0xE0, hex("0F 01")) + hex("66") + pes(0xE0, hex("0F 02"), 0),
         hex("01 02"), hex("01 02")},
    };
    CountingBlocks blocks;
    std::mt19937 random(4);
    for (auto const & [name, stream, payload, withSkipped] : cases)
        for (UInt64 const longest : {5000, 1, 7})
            for (bool const keepSkipped : {false, true})
            {
                SCOPED_TRACE(testing::Message() << name << ", pieces of " << longest);
                PESParser parser(pieceSource(blocks, cutAtRandom(stream, longest, random)), PLENTY, keepSkipped);
                EXPECT_EQ(payloadOf(parser), keepSkipped ? withSkipped : payload);
            }
    EXPECT_EQ(blocks.alive(), 0);
}

TEST(PESParser, GivesAnOpenPacketOfAnyLengthInPieces)
{
    Bytes const payload = counting(5'000'000);
    Bytes const stream = pes(0xE0, hex("0F") + payload, 0) + pes(0xE0, hex("0F 11"), 0);
    PESParser parser(queuedBytes(stream.data(), stream.size(), 1 << 22), 0, false);
    EXPECT_LT(parser.read(1)->size(), 3'000'000u);
    UInt64 const rest = payload.size() - parser.absoluteOffset();
    EXPECT_EQ(parser.skip(rest - 1), rest - 1);
    EXPECT_EQ(bytesOf(*parser.read(1)), Bytes{payload.back()});
    EXPECT_EQ(bytesOf(*parser.read(1)), hex("11"));
}

TEST(PESParser, TellsTimeStampsAndSkips)
{
    Bytes const stream = pes(0xE0, PTS_OF_1 + counting(10)) + pes(0xE0, hex("80 00 00") + counting(10, 10)) +
                         pes(0xE0, hex("80 80 05 21 00 01 00 09") + counting(10, 20));
    PESParser parser(queuedBytes(stream.data(), stream.size()), 0, false);
    EXPECT_EQ(parser.pts(), 1u);
    EXPECT_EQ(parser.skip(12), 12u);
    EXPECT_EQ(parser.absoluteOffset(), 12u);
    EXPECT_EQ(parser.pts(), 0u);
    EXPECT_EQ(bytesOf(*parser.read(1)), counting(8, 12));
    EXPECT_EQ(bytesOf(*parser.read(1)), counting(10, 20));
    EXPECT_EQ(parser.pts(), 4u);
    EXPECT_TRUE(parser.endOfStream());
    EXPECT_EQ(parser.skip(5), 0u);
    EXPECT_EQ(parser.read(1).get(), nullptr);
}

TEST(PESParser, RefusesWhatHasNoPacketsNear)
{
    struct Case
    {
        Bytes stream;
        UInt64 maximumToSkip;
        char const * message;
    };

    char const * const none = "!reader_.endOfStream (): Invalid PES stream. Could not find PES startcode.";
    Bytes const packet = pes(0xE0, hex("0F 01"));
    UInt64 const packHeaders = PACK_HEADER.size() - 12;
    Case const cases[] = {
        {{}, PLENTY, none},
        {counting(500), PLENTY, none},
        {PACK_HEADER + hex("000001B3") + counting(50, 3), PLENTY, none},
        {counting(300) + packet, 299,
         "Skipped too many bytes to search for the PES header. PES position: 0x12b - Configured maximum to skip 299"},
        {PACK_HEADER + packet, packHeaders - 1,
         "Skipped too many bytes to search for the PES header. PES position: 0xd - Configured maximum to skip 13"},
        {hex("000001BA") + packet, 3,
         "Skipped too many bytes to search for the PES header. PES position: 0x4 - Configured maximum to skip 3"},
    };
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.message);
        auto const make = [&](auto const & use)
        {
            PESParser parser(queuedBytes(c.stream.data(), c.stream.size()), c.maximumToSkip, false);
            EXPECT_FAILURE(InvalidFormat, c.message, use(parser));
        };
        make([](PESParser & parser) { return parser.read(1); });
        make([](PESParser & parser) { return parser.skip(1); });
        make([](PESParser & parser) { return parser.absoluteOffset(); });
        make([](PESParser & parser) { return parser.endOfStream(); });
        make([](PESParser & parser) { return parser.pts(); });
    }
}

TEST(PESParser, GoesOnBehindBytesThatAreTooMany)
{
    Bytes const stream = pes(0xE0, hex("0F 01")) + counting(10, 5) + pes(0xE0, hex("0F 02"));
    for (UInt64 const maximumToSkip : {0, 4, 9})
    {
        PESParser parser(queuedBytes(stream.data(), stream.size(), 3), maximumToSkip, false);
        EXPECT_EQ(parser.read(1)->size(), 1u);
        EXPECT_EQ(parser.read(1)->size(), 0u);
        EXPECT_FALSE(parser.endOfStream());
        EXPECT_EQ(payloadOf(parser), hex("02"));
    }
}

TEST(PESParser, CanBeReadThroughASliceReader)
{
    Bytes const stream = pes(0xE0, hex("0F 01 02")) + pes(0xE0, hex("0F 03")) + hex("000001B9");
    DataIO::SliceReader reader(
        Templates::SharedPtr<DataIO::SliceSource>(new PESParser(queuedBytes(stream.data(), stream.size()), 0, false)));
    EXPECT_EQ(bytesOf(*reader.read(100)), hex("01 02 03"));
    EXPECT_TRUE(reader.endOfStream());
}

TEST(PESParser, GivesWhatFFmpegExtracts)
{
    VANTRY_NEEDS_FFMPEG();
    struct Case
    {
        char const *source, *coder, *elementary;
    };

    Case const cases[] = {
        {"-f lavfi -i testsrc2=s=720x576:r=25:d=2", "-c:v mpeg2video -b:v 8M", "mpeg2video"},
        {"-f lavfi -i sine=r=48000:d=2", "-c:a mp2", "mp2"},
        {"-f lavfi -i testsrc2=s=352x288:r=25:d=2", "-c:v mpeg1video -b:v 2M", "mpeg1video"},
    };
    for (Case const & c : cases)
        for (std::string const form : {"vob", "mpeg"})
        {
            SCOPED_TRACE(c.elementary + (" in " + form));
            FFmpegFile const program(std::string(c.source) + " " + c.coder + " -f " + form);
            FFmpegFile const elementary("-f mpeg -i " + program.path().string() + " -c copy -f " + c.elementary);
            Bytes const stream = readFile(program.path());
            PESParser parser(queuedBytes(stream.data(), stream.size(), 4096), PLENTY, false);
            Bytes const payload = payloadOf(parser);
            EXPECT_GT(payload.size(), 10'000u);
            EXPECT_TRUE(payload == readFile(elementary.path())) << payload.size() << " bytes";
        }
}

}}
