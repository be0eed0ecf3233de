// Header metadata as the program shows them. The files are put together byte by
// byte: what other classes of the library write, they may also misread.

#include "support/VantryProgram.h"

#include <nlohmann/json.hpp>

namespace Vantry { namespace Tests { namespace {

using Json = nlohmann::ordered_json;

std::string const PREFACE = "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 2F 00";
std::string const CONTENT_STORAGE = "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 18 00";
std::string const IDENTIFICATION = "06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 30 00";
std::string const NEW_GROUP = "06 0E 2B 34 02 53 01 01 0F 01 02 03 04 05 06 07";
std::string const NEW_PACK = "06 0E 2B 34 02 05 01 01 0F 01 02 03 04 05 06 07";
Bytes const FILL = hex("06 0E 2B 34 01 01 01 02 03 01 02 10 01 00 00 00 03 000000");

Bytes number(UInt64 value, unsigned size)
{
    Bytes bytes(size);
    for (; size > 0; value >>= 8)
        bytes[--size] = static_cast<unsigned char>(value);
    return bytes;
}

Bytes packet(std::string const & key, Bytes const & value)
{
    return hex(key) + hex("83") + number(value.size(), 3) + value;
}

Bytes element(char const * tag, Bytes const & value)
{
    return hex(tag) + number(value.size(), 2) + value;
}

/// An instance identifier for each number.
Bytes uuid(unsigned set)
{
    return repeated(12, 0xEE) + number(set, 4);
}

Bytes instance(unsigned set)
{
    return element("3C0A", uuid(set));
}

/// The packages of a ContentStorage, by which one can own any set.
Bytes owns(std::vector<unsigned> const & sets)
{
    Bytes batch = number(sets.size(), 4) + number(16, 4);
    for (unsigned set : sets)
        batch += uuid(set);
    return element("1901", batch);
}

Bytes preface(unsigned set, unsigned contentStorage)
{
    return packet(PREFACE, instance(set) + element("3B03", uuid(contentStorage)));
}

Bytes primer(std::vector<std::pair<char const *, char const *>> const & entries)
{
    Bytes value = number(entries.size(), 4) + number(18, 4);
    for (auto const & [tag, label] : entries)
        value += hex(tag) + hex(label);
    return packet("06 0E 2B 34 02 05 01 01 0D 01 02 01 01 05 01 00", value);
}

Bytes const PRIMER = primer({{"3C0A", "06 0E 2B 34 01 01 01 01 01 01 15 02 00 00 00 00"},
                             {"3B03", "06 0E 2B 34 01 01 01 02 06 01 01 04 02 01 00 00"},
                             {"1901", "06 0E 2B 34 01 01 01 02 06 01 01 04 05 01 00 00"},
                             {"9000", "06 0E 2B 34 01 01 01 0F 01 01 01 01 01 01 01 01"}});

Bytes partition(UInt64 headerByteCount)
{
    return packet("06 0E 2B 34 02 05 01 01 0D 01 02 01 01 02 04 00",
                  repeated(32, 0) + number(headerByteCount, 8) + repeated(40, 0) + number(0, 4) + number(16, 4));
}

/// A file with this header metadata, the primer pack among them, and something
/// behind them.
Bytes file(Bytes const & metadata)
{
    return partition(metadata.size()) + FILL + metadata + FILL;
}

Bytes text(char const * utf16)
{
    Bytes bytes;
    for (; *utf16 != 0; ++utf16)
        bytes += Bytes{0, static_cast<unsigned char>(*utf16)};
    return bytes;
}

Bytes const MIXED =
    hex("07 07 07") +
    file(PRIMER + FILL + packet(CONTENT_STORAGE, instance(2) + owns({3, 3, 9}) + element("1234", hex("01"))) +
         packet(NEW_GROUP, instance(4) + element("9000", hex("0102"))) + preface(1, 2) +
         packet(IDENTIFICATION, instance(3) + element("3C02", text("a\n\x9B\"b ")) +
                                    element("3C06", hex("07EA 01 1F 0C 22 38 7D")) + element("3C03", hex("0001")) +
                                    element("3B03", uuid(7))) +
         packet(NEW_PACK, counting(70)) + packet(IDENTIFICATION, instance(5).first(3)));

TEST(Info, ShowsTheTreeOfSets)
{
    char const * const PAGE = &R"(
Preface  06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.2f.00
    Instance UID     3c.0a  UUID             eeeeeeee-eeee-eeee-eeee-eeee00000001
    Content Storage  3b.03  StrongReference  ContentStorage eeeeeeee-eeee-eeee-eeee-eeee00000002
  ContentStorage  06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.18.00
      Instance UID  3c.0a  UUID                      eeeeeeee-eeee-eeee-eeee-eeee00000002
      Packages      19.01  Batch of StrongReference  [Identification eeeeeeee-eeee-eeee-eeee-eeee00000003, Identification eeeeeeee-eeee-eeee-eeee-eeee00000003, no set eeeeeeee-eeee-eeee-eeee-eeee00000009]
      -             12.34  -                         (unknown: the primer pack lacks the tag)  0x01
    Identification  06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.30.00
        Instance UID     3c.0a  UUID                eeeeeeee-eeee-eeee-eeee-eeee00000003
        Product Name     3c.02  UTF16CharString     "a\n \"b "
        Modified Date    3c.06  TimestampType       2026-01-31T12:34:56.500
        Product Version  3c.03  ProductVersionType  (invalid: the value isn't of its type)  0x0001
        Content Storage  3b.03  StrongReference     (misplaced: the element has no place in this set)  no set eeeeeeee-eeee-eeee-eeee-eeee00000007

Sets that the Preface doesn't lead to

Unknown Set  06.0e.2b.34.02.53.01.01.0f.01.02.03.04.05.06.07  (dark)
    Instance UID                                     3c.0a  UUID  (misplaced: the element has no place in this set)  eeeeeeee-eeee-eeee-eeee-eeee00000004
    06.0e.2b.34.01.01.01.0f.01.01.01.01.01.01.01.01  90.00  -     (unknown: the dictionary lacks the label)  0x0102

Dark sets

Unknown  06.0e.2b.34.02.05.01.01.0f.01.02.03.04.05.06.07  0x000102030405060708090a0b0c0d0e0f101112131415161718191a1b1c1d1e1f202122232425262728292a2b2c2d2e2f303132333435363738393a3b3c3d3e3f... (70 bytes)
Identification  06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.30.00  0x3c0a00

Warnings

the packet at offset 646 is no metadata set that can be read: Invalid data size in Value to create an element in the metadataSet.
ContentStorage eeeeeeee-eeee-eeee-eeee-eeee00000002 owns a set that isn't there: eeeeeeee-eeee-eeee-eeee-eeee00000009
Identification eeeeeeee-eeee-eeee-eeee-eeee00000003 owns a set that isn't there: eeeeeeee-eeee-eeee-eeee-eeee00000007
Identification eeeeeeee-eeee-eeee-eeee-eeee00000003 is owned more than once, or by itself
)"[1];

    ScratchFolder const scratch;
    scratch.write("mixed", MIXED);
    Ended const ended = runVantry(scratch, "info --metadata mixed");
    EXPECT_EQ(ended.output, PAGE);
    EXPECT_EQ(ended.errors, "");
    EXPECT_EQ(ended.status, 0);
}

TEST(Info, ShowsTheSameToMachines)
{
    ScratchFolder const scratch;
    scratch.write("mixed", MIXED);
    Json const page = Json::parse(runVantry(scratch, "info --metadata --json mixed").output);
    EXPECT_EQ(page["file"], "mixed");
    EXPECT_EQ(page["warnings"].size(), 4u);
    ASSERT_EQ(page["sets"].size(), 4u);
    ASSERT_EQ(page["dark_sets"].size(), 2u);
    EXPECT_EQ(page["dark_sets"][0]["value"].get<std::string>().size(), 2 + 2 * 70u);

    Json const & sets = page["sets"];
    EXPECT_EQ(sets[0]["parent"], nullptr);
    EXPECT_EQ(sets[1]["parent"], 0);
    EXPECT_EQ(sets[2]["parent"], 1);
    EXPECT_EQ(sets[3]["parent"], nullptr);
    EXPECT_EQ(sets[3]["dark"], true);
    EXPECT_EQ(sets[0].dump(), R"({"key":"06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.2f.00","name":"Preface",)"
                              R"("instance":"eeeeeeee-eeee-eeee-eeee-eeee00000001","parent":null,"dark":false,)"
                              R"("elements":[{"name":"instanceUID","tag":"3c.0a","type":"UUID",)"
                              R"("value":"eeeeeeee-eeee-eeee-eeee-eeee00000001"},)"
                              R"({"name":"contentStorage","tag":"3b.03","type":"StrongReference","value":)"
                              R"({"instance":"eeeeeeee-eeee-eeee-eeee-eeee00000002","set":1}}]})");
    EXPECT_EQ(sets[2]["elements"][1]["value"], "a\n\u009B\"b ");
    EXPECT_EQ(
        sets[3]["elements"][1].dump(),
        R"({"name":null,"tag":"90.00","type":null,"value":"0x0102","fault":"unknown",)"
        R"("reason":"the dictionary lacks the label","label":"06.0e.2b.34.01.01.01.0f.01.01.01.01.01.01.01.01"})");
}

TEST(Info, ReadsWhatThereIsOfDamagedMetadata)
{
    std::string const TWO = "eeeeeeee-eeee-eeee-eeee-eeee00000002";
    Bytes const storage = packet(CONTENT_STORAGE, instance(2));
    Bytes const whole = file(PRIMER + preface(1, 2) + storage);
    using Strings = std::vector<std::string>;
    std::tuple<char const *, Bytes, unsigned, Strings> const CASES[] = {
        {"nothing is wrong", whole, 2, {}},
        {"no metadata", partition(0), 0, Strings{"there are no header metadata in this partition"}},
        {"no primer pack", file(preface(1, 2) + storage), 2,
         Strings{"the header metadata begin at offset 128 without a primer pack"}},
        {"a cut primer pack",
         file(packet("06 0E 2B 34 02 05 01 01 0D 01 02 01 01 05 01 00", hex("00000009 00000012 0000")) + preface(1, 2) +
              storage),
         2, Strings{"the packet at offset 128 is no primer pack that can be read: Invalid data size in Value"}},
        {"garbage between sets", file(PRIMER + preface(1, 2) + repeated(5, 7) + storage), 2,
         Strings{"5 bytes at offset 288 are no packet"}},
        {"something else between sets",
         file(PRIMER + preface(1, 2) + packet("06 0E 2B 34 01 02 01 01 0D 01 03 01 15 01 05 00", hex("00")) + storage),
         2, Strings{"the packet at offset 288 is no metadata set"}},
        {"a cut file", whole.first(whole.size() - FILL.size() - 5), 1,
         Strings{"the packet at offset 288 is cut: 15 of 20 bytes of its value are there",
                 "the file ends within the header metadata: 195 of 200 bytes are there",
                 "Preface eeeeeeee-eeee-eeee-eeee-eeee00000001 owns a set that isn't there: " + TWO}},
        {"an identifier that is there twice", file(PRIMER + preface(1, 2) + storage + storage), 3,
         Strings{"the instance identifier of ContentStorage " + TWO + " is there twice"}},
        {"a set that owns itself", file(PRIMER + preface(1, 2) + packet(CONTENT_STORAGE, instance(2) + owns({2}))), 2,
         Strings{"ContentStorage " + TWO + " is owned more than once, or by itself"}},
        {"a circle that nobody owns",
         file(PRIMER + packet(CONTENT_STORAGE, instance(2) + owns({3})) +
              packet(CONTENT_STORAGE, instance(3) + owns({2}))),
         2, Strings{"ContentStorage " + TWO + " is owned more than once, or by itself"}},
    };

    ScratchFolder const scratch;
    for (auto const & [name, bytes, sets, warnings] : CASES)
    {
        SCOPED_TRACE(name);
        scratch.write("file", bytes);
        Ended const ended = runVantry(scratch, "info --metadata --json file");
        EXPECT_EQ(ended.status, 0) << ended.errors;
        Json const page = Json::parse(ended.output);
        EXPECT_EQ(page["sets"].size(), sets);
        EXPECT_EQ(page["warnings"].get<Strings>(), warnings);
    }
}

// Makers leave the date out, or what was in memory in.
TEST(Info, ShowsDatesThatCantBe)
{
    ScratchFolder const scratch;
    for (auto const & [stamp, text] : {std::pair("0000 00 00 00 00 00 00", "0000-00-00T00:00:00.000"),
                                       std::pair("A699 02 00 0A 30 05 13", "42649-02-00T10:48:05.076"),
                                       std::pair("FFFF FF FF FF FF FF FF", "65535-255-255T255:255:255.1020")})
    {
        scratch.write("file", file(PRIMER + packet(IDENTIFICATION, instance(3) + element("3C06", hex(stamp)))));
        Json const page = Json::parse(runVantry(scratch, "info --json file").output);
        EXPECT_EQ(page["identifications"][0]["modified"], text);
    }
}

TEST(Info, HoldsOutAgainstADeepTree)
{
    unsigned const DEPTH = 30000;
    Bytes metadata = PRIMER;
    for (unsigned set = 0; set < DEPTH; ++set)
        metadata += packet(CONTENT_STORAGE, instance(set) + owns({set + 1}));

    ScratchFolder const scratch;
    scratch.write("deep", file(metadata));
    Ended const ended = runVantry(scratch, "info --metadata deep | grep -c ' 19.01 '");
    EXPECT_EQ(ended.output, std::to_string(DEPTH) + "\n");
}

TEST(Info, EndsWithAStatusAndALine)
{
    ScratchFolder const scratch;
    scratch.write("fill", FILL);
    scratch.write("late", repeated(65536, 7) + file(PRIMER));
    scratch.write("zeros", hex("06 0E 2B 34 02 05 01 01 0D 01 02 01 01 02 04 00") + repeated(90, 0));
    scratch.write("primer", PRIMER);
    scratch.write("index", packet("06 0E 2B 34 02 53 01 01 0D 01 02 01 01 10 01 00", hex("3F07 0004 00000001")));

    std::tuple<char const *, int, char const *> const CASES[] = {
        {"info fill", 1, "vantry: fill: there is no partition at its start\n"},
        {"info late", 1, "vantry: late: there is no partition at its start\n"},
        {"info zeros", 1, "vantry: zeros: there is no partition at its start\n"},
        {"info primer", 1, "vantry: primer: there is no partition at its start\n"},
        {"info index", 1, "vantry: index: there is no partition at its start\n"},
        {"info --metadata - < fill", 2, "vantry: -: this command needs a file, standard input is read only once\n"},
        {"info --metadata /dev/null", 1,
         "vantry: /dev/null: is no plain file, and this command reads here and there\n"},
        {"info --metadata missing", 1, "vantry: missing: can't be opened: No such file or directory\n"},
    };
    for (auto const & [arguments, status, errors] : CASES)
    {
        SCOPED_TRACE(arguments);
        Ended const ended = runVantry(scratch, arguments);
        EXPECT_EQ(ended.status, status);
        EXPECT_EQ(ended.errors, errors);
        EXPECT_EQ(ended.output, "");
    }
}

}}}
