#include "support/Samples.h"
#include "support/VantryProgram.h"

#include <nlohmann/json.hpp>
#include <random>
#include <sstream>

namespace Vantry { namespace Tests {

using Json = nlohmann::ordered_json;

namespace {

std::size_t const KEY_SIZE = 16;

/// What a dump should tell of a file.
struct Expected
{
    std::vector<Json> records; // without the names
    int status;
};

bool isKeyStart(Bytes const & file, std::size_t at)
{
    static unsigned char const PREFIX[] = {0x06, 0x0E, 0x2B, 0x34};
    return file.size() - at >= KEY_SIZE && std::equal(PREFIX, PREFIX + 4, file.begin() + at) &&
           (file[at + 4] <= 3 || file[at + 4] == 5);
}

std::string dotted(unsigned char const * key)
{
    std::ostringstream text;
    for (std::size_t i = 0; i < KEY_SIZE; ++i)
        text << (i ? "." : "") << std::hex << (key[i] >> 4) << (key[i] & 15);
    return text.str();
}

/// A walk over the bare bytes, which shares nothing with the program.
Expected walk(Bytes const & file)
{
    Expected expected{{}, file.empty() ? 1 : 0};
    bool unreadable = false;
    std::size_t gap = 0;
    auto const endGap = [&](std::size_t end)
    {
        if (end == gap)
            return;
        expected.records.push_back({{"offset", gap}, {"skipped", end - gap}});
        if (gap > 0 || end > 65535 || unreadable || end == file.size())
            expected.status = 3;
        unreadable = false;
    };

    for (std::size_t at = 0; at < file.size();)
    {
        if (!isKeyStart(file, at))
        {
            ++at;
            continue;
        }

        std::size_t const there = file.size() - at - KEY_SIZE;
        if (there == 0)
            break;
        unsigned char const * const field = &file[at + KEY_SIZE];
        std::size_t const ber = field[0] < 0x80 ? 1 : field[0] - 0x7F;
        if (field[0] == 0x80 || ber > 9)
        {
            unreadable = true;
            ++at;
            continue;
        }
        if (there < ber)
            break;
        UInt64 length = ber == 1 ? field[0] : 0;
        for (std::size_t i = 1; i < ber; ++i)
            length = length << 8 | field[i];

        endGap(at);
        Json record = {{"offset", at}, {"key", dotted(&file[at])}, {"ber", ber}, {"length", length}};
        if (length > there - ber)
        {
            record["cut"] = true;
            expected.status = 3;
        }
        expected.records.push_back(record);
        at += KEY_SIZE + ber + std::min<UInt64>(length, there - ber);
        gap = at;
    }
    endGap(file.size());
    return expected;
}

/// Holds one dump against what it should be.
void compare(Ended const & dump, Expected const & expected)
{
    EXPECT_EQ(dump.status, expected.status) << dump.errors;
    EXPECT_EQ(dump.errors.empty(), expected.status == 0) << dump.errors;

    std::istringstream lines(dump.output);
    std::string line;
    for (Json const & record : expected.records)
    {
        ASSERT_TRUE(std::getline(lines, line)) << "missing: " << record;
        Json got = Json::parse(line);
        EXPECT_EQ(got.erase("name"), record.contains("key")) << line;
        for (char const * facts : {"partition", "primer", "entries", "index_segment"})
            got.erase(facts);
        ASSERT_EQ(got.dump(), record.dump());
    }
    EXPECT_FALSE(std::getline(lines, line)) << "too much: " << line;
}

/// Dumps a file by its name and as standard input, plain and as a pipe.
void check(ScratchFolder const & scratch, std::string const & name, Bytes const & file)
{
    SCOPED_TRACE(name);
    Expected const expected = walk(file);
    scratch.write("file", file);
    compare(runVantry(scratch, "dump --json file"), expected);
    compare(runVantry(scratch, "dump --json - < file"), expected);
}

/// Checks a file that has been damaged in all the ways that a disk or a line
/// has to damage it.
void checkDamaged(ScratchFolder const & scratch, std::string const & name, Bytes const & file)
{
    std::vector<Json> const records = walk(file).records;
    std::size_t const middle = records[records.size() / 2]["offset"];
    Bytes const behind(file.begin() + middle, file.end());

    check(scratch, name + " with run-in", hex("06 0E 2B 34 04 06 0E 2B") + file);
    check(scratch, name + " with long run-in", repeated(65536, 0x06) + file);
    check(scratch, name + " with garbage inside", file.first(middle) + hex("00 06 0E 2B 34 06 0E 2B 34") + behind);
    for (unsigned char field : {0x80, 0x8A, 0xFF})
    {
        Bytes unreadable = file;
        unreadable[middle + KEY_SIZE] = field;
        check(scratch, name + " with unreadable length", unreadable);
    }
    for (std::size_t size : {middle + 3, middle + KEY_SIZE, middle + KEY_SIZE + 1, file.size() - 1})
        check(scratch, name + " cut", file.first(size));

    std::mt19937 random(static_cast<unsigned int>(file.size()));
    Bytes flipped = file;
    for (int i = 0; i < 100; ++i)
        flipped[random() % file.size()] ^= 1 << random() % 8;
    check(scratch, name + " with flipped bits", flipped);
}

}

TEST(Dump, AgreesWithAnIndependentWalkOverSamples)
{
    VANTRY_NEEDS_SAMPLES();
    ScratchFolder const scratch;
    for (std::filesystem::path const & sample : samples())
    {
        Bytes const file = readFile(sample);
        check(scratch, sample.filename(), file);
        if (file.size() < 30000)
            checkDamaged(scratch, sample.filename(), file);
    }
}

TEST(Dump, TellsWhatIsInPacks)
{
    std::string const PATTERN = "06 0E 2B 34 04 01 01 01 0D 01 02 01 01 01 09 00";
    std::string const LABEL = "01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F 10";
    std::string const NONE(32, '0');
    std::string const PARTITION = "00 01 00 03 00 00 02 00" + std::string(48, '0') + "00 00 00 00 00 00 12 00" +
                                  std::string(40, '0') + "00 00 00 01";
    Bytes const file =
        hex("06 0E 2B 34 02 05 01 01 0D 01 02 01 01 02 04 00 78" + PARTITION + PATTERN + "00000002 00000010" + LABEL +
            NONE) +
        hex("06 0E 2B 34 02 05 01 01 0D 01 02 01 01 05 01 00 2C 00000002 00000012 8001" + LABEL + "8001" + LABEL) +
        hex("06 0E 2B 34 02 05 01 01 0D 01 02 01 01 11 01 00 1C 00000001 00000000000003E8") +
        hex("00000000 0000000000000000 00000000") +
        hex("06 0E 2B 34 02 05 01 01 0D 01 02 01 01 11 01 00 06 000000000000") +
        hex("06 0E 2B 34 02 53 01 01 0D 01 02 01 01 10 00 00 20 3F0B0008 00000019 00000001 3F0D0008 0000000000000007") +
        hex("3F050004 00001000") + hex("06 0E 2B 34 02 53 01 01 0D 01 02 01 01 10 01 00 05 3F050004 00");
    char const * const PLAIN = &R"(
           0  06.0e.2b.34.02.05.01.01.0d.01.02.01.01.02.04.00           120  Header Partition (closed, complete): header 4608 bytes, index 0 bytes, pattern 1.3.53.4.1.1.1.13.1.2.1.1.1.9, container 01.02.03.04.05.06.07.08.09.0a.0b.0c.0d.0e.0f.10, container 00.00.00.00.00.00.00.00.00.00.00.00.00.00.00.00
         137  06.0e.2b.34.02.05.01.01.0d.01.02.01.01.05.01.00            44  Primer Pack: 1 tags, 1 duplicates
         198  06.0e.2b.34.02.05.01.01.0d.01.02.01.01.11.01.00            28  Random Index Pack: SID 0 at 0, SID 1 at 1000
         243  06.0e.2b.34.02.05.01.01.0d.01.02.01.01.11.01.00             6  Random Index Pack
         266  06.0e.2b.34.02.53.01.01.0d.01.02.01.01.10.00.00            32  Index Table Segment: from edit unit 0, 7 edit units at 25/1, 4096 bytes each, 0 entries, body SID 0
         315  06.0e.2b.34.02.53.01.01.0d.01.02.01.01.10.01.00             5  Index Table Segment
)"[1];

    ScratchFolder const scratch;
    scratch.write("file", file);
    EXPECT_EQ(runVantry(scratch, "dump - < file").output, PLAIN);

    std::istringstream lines(runVantry(scratch, "dump --json file").output);
    std::string line;
    std::getline(lines, line);
    Json const partition = Json::parse(line)["partition"];
    EXPECT_EQ(partition["operational_pattern"], "06.0e.2b.34.04.01.01.01.0d.01.02.01.01.01.09.00");
    EXPECT_EQ(partition["essence_containers"], Json({"01.02.03.04.05.06.07.08.09.0a.0b.0c.0d.0e.0f.10",
                                                     "00.00.00.00.00.00.00.00.00.00.00.00.00.00.00.00"}));
    std::getline(lines, line);
    EXPECT_EQ(Json::parse(line)["primer"], Json({{"tags", 1}, {"duplicates", 1}}));
    std::getline(lines, line);
    EXPECT_EQ(Json::parse(line)["entries"].dump(), R"([{"body_sid":0,"offset":0},{"body_sid":1,"offset":1000}])");
    std::getline(lines, line);
    EXPECT_EQ(Json::parse(line).size(), 5u) << line;
}

TEST(Dump, HoldsItsGroundOnWhatNobodyWouldWrite)
{
    std::string const KEY = "06 0E 2B 34 01 01 01 01 0F 00 00 80 00 00 00 00";
    std::pair<char const *, Bytes> const CASES[] = {
        {"the start of a key ahead of a key", hex("06 0E 2B 34 01" + KEY + "01 00")},
        {"a stretch of keys without length", hex("06 0E 2B 34 01" + KEY + KEY + KEY)},
        {"a length near the end of numbers", hex(KEY + "88 FF FF FF FF FF FF FF FF 00")},
        {"a length of 2^62", hex(KEY + "01 00" + KEY + "88 40 00 00 00 00 00 00 00") + repeated(1000, 0)},
        {"a length of nothing in nine bytes", hex(KEY + "88 00 00 00 00 00 00 00 00" + KEY + "00")},
        {"only the start of a key", hex("06 0E 2B 34 01")},
        {"less", hex("06")},
    };

    ScratchFolder const scratch;
    for (auto const & [name, file] : CASES)
        check(scratch, name, file);

    // Garbage that straddles the edges of the buffers.
    for (std::size_t edge : {16384, 262144, 262208})
        for (std::size_t size = edge - 30; size < edge + 3; size += 8)
            check(scratch, std::to_string(size), repeated(size, 0) + hex("06 0E 2B 34 01" + KEY + "01 00"));
}

TEST(Dump, ShowsColumnsAndNames)
{
    char const * const LINES = &R"(
           0  -                                                           2  skipped
           2  06.0e.2b.34.02.05.01.01.0d.01.02.01.01.02.04.00             1  Header Partition (closed, complete)
          20  06.0e.2b.34.02.05.01.01.0d.01.02.01.01.05.01.00             0  Primer Pack
          37  06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.2f.00             0  Preface
          54  06.0e.2b.34.02.53.01.01.0d.01.04.01.01.01.01.00             0  ProductionFramework
          71  06.0e.2b.34.02.53.01.01.0d.01.01.01.02.20.00.00             0  Unknown Set
          88  06.0e.2b.34.02.53.01.01.0d.01.02.01.01.10.01.00             0  Index Table Segment: from edit unit 0 at 0/1, 0 entries, body SID 0
         105  06.0e.2b.34.01.01.01.02.03.01.02.10.01.00.00.00             0  Fill
         122  06.0e.2b.34.02.05.01.01.0d.01.02.01.01.03.01.00             0  Body Partition (open, incomplete)
         139  06.0e.2b.34.02.05.01.01.0d.01.02.01.01.03.02.00             0  Body Partition (closed, incomplete)
         156  06.0e.2b.34.02.05.01.01.0d.01.02.01.01.03.11.00             0  Generic Stream Partition
         173  06.0e.2b.34.02.05.01.01.0d.01.02.01.01.03.00.00             0  Body Partition (unknown status 0x00)
         190  06.0e.2b.34.01.01.01.0c.0d.01.05.09.01.00.00.00             0  Generic Stream Element
         207  06.0e.2b.34.01.02.01.01.0d.01.03.01.05.01.01.01             0  CP Picture Element (track number 0x05010101)
         224  06.0e.2b.34.01.02.01.01.0d.01.03.01.06.01.10.02             0  CP Sound Element (track number 0x06011002)
         241  06.0e.2b.34.01.02.01.01.0d.01.03.01.07.01.20.03             0  CP Data Element (track number 0x07012003)
         258  06.0e.2b.34.01.02.01.01.0d.01.03.01.15.01.05.00             0  GC Picture Element (track number 0x15010500)
         275  06.0e.2b.34.01.02.01.01.0d.01.03.01.16.01.01.00             0  GC Sound Element (track number 0x16010100)
         292  06.0e.2b.34.01.02.01.01.0d.01.03.01.17.01.02.00             0  GC Data Element (track number 0x17010200)
         309  06.0e.2b.34.01.02.01.01.0d.01.03.01.18.01.01.00             0  GC Compound Element (track number 0x18010100)
         326  06.0e.2b.34.02.05.01.01.0d.01.03.01.04.01.01.00             0  CP System Item (track number 0x04010100)
         343  06.0e.2b.34.02.63.01.01.0d.01.03.01.14.02.01.00             0  GC System Item (track number 0x14020100)
         360  06.0e.2b.34.02.04.01.07.0d.01.03.01.02.7e.01.00             0  Encrypted Triplet
         377  06.0e.2b.34.01.02.01.01.0e.04.03.01.15.00.06.00             0  Unknown
         394  06.0e.2b.34.02.05.01.01.0d.01.02.01.01.04.03.00             0  Footer Partition (open, complete)
         411  06.0e.2b.34.02.05.01.01.0d.01.02.01.01.11.01.00             9  Random Index Pack, cut
)"[1];

    // The file is made from what should be seen of it.
    Bytes file;
    std::istringstream lines(LINES);
    for (std::string offset, key, length, name; lines >> offset >> key >> length && std::getline(lines, name);)
    {
        std::replace(key.begin(), key.end(), '.', ' ');
        auto const size = static_cast<unsigned char>(std::stoi(length));
        file += key == "-" ? repeated(size, 7) : hex(key) + Bytes{size} + repeated(size, 0);
    }

    file.pop_back(); // cuts the last

    ScratchFolder const scratch;
    scratch.write("file", file);
    EXPECT_EQ(runVantry(scratch, "dump file").output, LINES);
}

}}
