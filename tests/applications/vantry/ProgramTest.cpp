#include "support/VantryProgram.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstring>

#include <sys/stat.h>

namespace Vantry { namespace Tests {

using ::testing::HasSubstr;
using ::testing::StartsWith;

Bytes const FILL = hex("06 0E 2B 34 01 01 01 02 03 01 02 10 01 00 00 00  03  00 00 00");

Bytes text(char const * characters)
{
    return Bytes(characters, characters + std::strlen(characters));
}

TEST(Program, EndsWithAStatusAndAtMostOneLine)
{
    ScratchFolder const scratch;
    scratch.write("fill", FILL);
    scratch.write("run-in", repeated(65535, 7) + FILL);
    scratch.write("long-run-in", repeated(65536, 7) + FILL);
    scratch.write("between", FILL + hex("07 07") + FILL + hex("07"));
    scratch.write("cut", FILL.first(18));
    scratch.write("cut-length", FILL + FILL.first(16));
    scratch.write("bad-length", FILL.first(16) + hex("80") + FILL);
    scratch.write("no-packet", repeated(100, 7));
    scratch.write("empty", {});
    scratch.write("schema", text(R"({"sets": {"mine": {"name": "My\n\"Set\"", "attributes": {},
        "key": "06.0e.2b.34.02.53.01.02.0d.01.01.01.01.01.2f.00"}}})"));
    scratch.write("bad-schema", text(R"({"sets": {"mine": {"key": "06"}}})"));
    scratch.write("my-set", hex("06 0E 2B 34 02 53 01 02 0D 01 01 01 01 01 2F 00 00"));
    std::filesystem::create_directory(scratch.path() / "folder");
    ASSERT_EQ(mkfifo((scratch.path() / "pipe").c_str(), 0600), 0);

    std::tuple<char const *, int, char const *> const CASES[] = {
        {"dump fill", 0, ""},
        {"dump --json --quiet --dictionary schema -- fill", 0, ""},
        {R"(dump --json --dictionary schema my-set | grep -qF '"name": "My\u000a\"Set\""')", 0, ""},
        {R"(dump --dictionary schema my-set | grep -qF 'My "Set"')", 0, ""},
        {"dump - < fill", 0, ""},
        {"dump pipe & cat fill > pipe; wait $!", 0, ""},
        {"dump run-in", 0, ""},
        {"dump /dev/stdin < empty", 1, "vantry: /dev/stdin: there is no data\n"},
        {"dump empty", 1, "vantry: empty: there is no data\n"},
        {"dump folder", 1, "vantry: folder: is a directory\n"},
        {"dump - < folder", 1, "vantry: -: Error reading from stream. Is a directory\n"},
        {"dump missing", 1, "vantry: missing: can't be opened: No such file or directory\n"},
        {"dump 'a\nb'", 1, "vantry: a b: can't be opened: No such file or directory\n"},
        {"dump --dictionary missing fill", 1, "vantry: missing: can't be opened: No such file or directory\n"},
        {"dump --dictionary bad-schema fill", 1,
         "vantry: bad-schema: set 'mine', field 'key': must be 16 bytes in hexadecimal, with dots between them\n"},
        {"dump fill > /dev/full", 1, "vantry: standard output: No space left on device\n"},
        {"--version > /dev/full", 1, "vantry: standard output: No space left on device\n"},
        {"", 2, "vantry: a command is missing, see vantry --help\n"},
        {"dumb fill", 2, "vantry: unknown command dumb\n"},
        {"--bad", 2, "vantry: unknown option --bad\n"},
        {"--json dump fill", 2, "vantry: unknown option --json\n"},
        {"dump", 2, "vantry: dump: FILE is required\n"},
        {"dump fill dump", 2, "vantry: dump: unexpected argument dump\n"},
        {"dump - -", 2, "vantry: dump: unexpected argument -\n"},
        {"dump fill '--b\nad'", 2, "vantry: dump: unknown option --b ad\n"},
        {"dump fill --dictionary", 2, "vantry: dump: option --dictionary takes one FILE\n"},
        {"dump --dictionary a --dictionary b fill", 2, "vantry: dump: option --dictionary takes one FILE\n"},
        {"dump --json=x fill", 2, "vantry: dump: can't understand --json = x\n"},
        {"dump long-run-in", 3, "vantry: long-run-in: 65536 bytes at offset 0 are no packet\n"},
        {"dump between", 3, "vantry: between: 2 bytes at offset 20 are no packet (damaged places: 2)\n"},
        {"dump cut", 3, "vantry: cut: the packet at offset 0 is cut: 1 of 3 bytes of its value are there\n"},
        {"dump - < cut", 3, "vantry: -: the packet at offset 0 is cut: 1 of 3 bytes of its value are there\n"},
        {"dump cut-length", 3, "vantry: cut-length: 16 bytes at offset 20 are no packet\n"},
        {"dump bad-length", 3, "vantry: bad-length: 17 bytes at offset 0 are no packet\n"},
        {"dump no-packet", 3, "vantry: no-packet: there is no packet from offset 0 to the end\n"},
    };

    for (auto const & [arguments, status, errors] : CASES)
    {
        SCOPED_TRACE(arguments);
        Ended const ended = runVantry(scratch, arguments);
        EXPECT_EQ(ended.status, status);
        EXPECT_EQ(ended.errors, errors);
        EXPECT_TRUE(status == 0 || status == 3 || ended.output.empty()) << ended.output;
    }
}

TEST(Program, TellsHowItIsUsed)
{
    ScratchFolder const scratch;
    EXPECT_THAT(runVantry(scratch, "--version").output, StartsWith("vantry 4.4.3.0"));
    EXPECT_THAT(runVantry(scratch, "--help").output, HasSubstr("List every KLV packet"));

    Ended const help = runVantry(scratch, "dump --help");
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.errors, "");
    for (char const * text : {"FILE", "--json", "--quiet", "--dictionary", "Example: vantry dump --json a.mxf"})
        EXPECT_THAT(help.output, HasSubstr(text));
}

TEST(Program, EndsQuietlyWhenItsReaderGoes)
{
    ScratchFolder const scratch;
    Bytes many;
    for (int i = 0; i < 10000; ++i)
        many += FILL;
    scratch.write("many", many);

    Ended const ended = runVantry(scratch, "dump many 2> errors | head -n 1; cat errors >&2");
    EXPECT_EQ(std::count(ended.output.begin(), ended.output.end(), '\n'), 1);
    EXPECT_EQ(ended.errors, "");
}

}}
