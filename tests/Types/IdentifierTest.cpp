#include "KLV/Key.h"
#include "Types/LocalTag.h"
#include "Types/UMID32.h"
#include "Types/UMID64.h"
#include "Types/UUID.h"
#include "Types/UniversalLabel.h"
#include "support/Bytes.h"
#include "support/Failure.h"

#include <functional>
#include <random>
#include <sstream>

using namespace Vantry;
using namespace Vantry::Tests;

namespace {

using Encoding = Types::StringRepresentationEncodingType;

Encoding const DOTTED = Encoding::DOTTED_BYTES;
Encoding const HEXADECIMAL = Encoding::HEXADECIMAL;
Encoding const OID = Encoding::OID;
Encoding const RFC4122 = Encoding::RFC4122;
Encoding const NATIVE = Encoding::NATIVE;

// Tests speak of all classes in the same way.
struct Kind
{
    char const * name;
    std::size_t size;
    Encoding native;
    Bytes (*load)(std::string const & text, Encoding encoding);
    std::string (*render)(Bytes const & bytes, Encoding encoding);
};

template <class Identifier>
Kind kind(char const * name, std::size_t size, Encoding native)
{
    return {name, size, native,
            [](std::string const & text, Encoding encoding)
            {
                Identifier const loaded(Platform::stringToWstring(text.c_str()).c_str(), encoding);
                return Bytes(loaded.rawBuffer(), loaded.rawBuffer() + loaded.size());
            },
            [](Bytes const & bytes, Encoding encoding)
            {
                return std::string(
                    Platform::wstringToString(Identifier(bytes.data()).toString(encoding).c_str()).c_str());
            }};
}

Kind const TAG = kind<Types::LocalTag>("LocalTag", 2, HEXADECIMAL);
Kind const LABEL = kind<Types::UniversalLabel>("UniversalLabel", 16, OID);
Kind const UUID = kind<Types::UUID>("UUID", 16, RFC4122);
Kind const UMID32 = kind<Types::UMID32>("UMID32", 32, HEXADECIMAL);
Kind const UMID64 = kind<Types::UMID64>("UMID64", 64, HEXADECIMAL);
Kind const KEY = kind<KLV::Key>("Key", 16, OID);

Kind const KINDS[] = {KEY, TAG, LABEL, UUID, UMID32, UMID64};

// "InvalidLabel: message" of what the action throws.
std::string failureOf(std::function<void()> const & action)
{
    try
    {
        action();
    }
    catch (Exceptions::BaseException const & failure)
    {
        std::string const what = Platform::wstringToString(failure.what()).c_str();
        std::size_t const name = what.rfind("::", what.find("' (")) + 2;
        return what.substr(name, what.find('\'', name) - name) + ": " +
               Platform::wstringToString(failure.message()).c_str();
    }
    return "none";
}

}

TEST(IdentifierText, LoadsWhatItRendered)
{
    std::mt19937 random(4711);
    Bytes const prefix = hex("06 0E 2B 34 02");
    for (Kind const & kind : KINDS)
        for (int round = 0; round < 1000; ++round)
        {
            Bytes bytes(kind.size);
            for (unsigned char & byte : bytes)
                byte = static_cast<unsigned char>(random() % 3 == 0 ? 0 : random());
            if (kind.native == OID)
                for (std::size_t i = 0; i < prefix.size(); ++i)
                    bytes[i] = prefix[i];

            for (Encoding encoding : {DOTTED, kind.native})
                ASSERT_EQ(kind.load(kind.render(bytes, encoding), encoding), bytes) << kind.name;
        }
}

TEST(IdentifierText, HasItsForms)
{
    Bytes const uuid = hex("F81D4FAE 7DEC 11D0 A765 00A0C91E6BF6");
    std::tuple<Kind const &, Encoding, std::string, Bytes, std::string> const cases[] = {
        {TAG, HEXADECIMAL, "0x3c0a", hex("3C 0A"), "0x3c0a"},
        {TAG, DOTTED, "3C:0A", hex("3C 0A"), "3c.0a"},
        // A digit for a separator belongs to the number, whose low byte counts.
        {TAG, DOTTED, "3cb0a", hex("0A 0A"), "0a.0a"},
        {UUID, NATIVE, "F81D4FAE_7DEC.11D0 A765x00A0C91E6BF6", uuid, "f81d4fae-7dec-11d0-a765-00a0c91e6bf6"},
        {LABEL, OID, "1.3.53.0", hex("060E2B34") + repeated(12, 0), "1.3.53"},
        {LABEL, OID, "1.3.53. 7.+8.x.9y..10", hex("060E2B34 07 08 00 09 00 0A") + repeated(6, 0),
         "1.3.53.7.8.0.9.0.10"},
        {KEY, OID, "1.3.53.2.5.0.1", hex("060E2B34 02 05 00 01") + repeated(8, 0), "1.3.53.2.5.0.1"},
    };
    for (auto const & [kind, encoding, text, bytes, rendered] : cases)
    {
        SCOPED_TRACE(text);
        EXPECT_EQ(kind.load(text, encoding), bytes);
        EXPECT_EQ(kind.render(bytes, encoding), rendered);
    }
}

TEST(IdentifierText, SaysWhatIsWrong)
{
    std::string const tooShort = "InvalidLength: Not enough data";
    std::string const noDigits = "InvalidLabel: Label contains non Hexadecimal characters";
    std::string const no0x = "InvalidLabel: Expecting 0x in the start of the plain hexadecimal string representation";
    std::string const outOfRange = "InvalidLabel: OID contains values not in [0 - 255].";
    std::string const otherPrefix = "InvalidLabel: OID contains initial values not according to type";
    std::string const tooLong = "InvalidLength: OID contains more elements than expected";
    std::string const digitForHyphen = "InvalidLabel: Expected a separator that is not an hexadecimal character";

    std::tuple<Kind const &, Encoding, std::string, std::string> const cases[] = {
        {TAG, DOTTED, "3c.0a.", tooShort},
        {TAG, DOTTED, "3c.g0", noDigits},
        {TAG, DOTTED, "3c.0\xC4\xB0", noDigits}, // U+0130, whose low byte is "0"
        {TAG, HEXADECIMAL, "0X3c0a", no0x},
        {UUID, RFC4122, "f81d4fae-7dec-11d0-a765-00a0c91e6bf6-", tooShort},
        {UUID, RFC4122, "f81d4fag-7dec-11d0-a765-00a0c91e6bf6", noDigits},
        {UUID, RFC4122, "f81d4fae-7dec-11d0a-765-00a0c91e6bf6", digitForHyphen},
        {LABEL, OID, "1.3.53", tooShort},
        {LABEL, OID, "1.3.52.4", otherPrefix},
        {KEY, OID, "1.3.53.1.5", otherPrefix},
        {KEY, OID, "1.3.53.2.1.2.3.4.5.6.7.8.9.10.11.12", tooLong},
        {LABEL, OID, "1.3.53.256", outOfRange},
        {LABEL, OID, "1.3.53.4294967297", outOfRange},
    };
    for (auto const & [kind, encoding, text, failure] : cases)
        EXPECT_EQ(failureOf([&kind = kind, how = encoding, &text = text] { kind.load(text, how); }), failure)
            << kind.name << ' ' << text;
}

TEST(IdentifierText, RefusesFormsOfOtherClasses)
{
    Encoding const all[] = {HEXADECIMAL, OID, RFC4122, static_cast<Encoding>(5), static_cast<Encoding>(-1)};
    for (Kind const & kind : KINDS)
        for (Encoding encoding : all)
        {
            if (encoding == kind.native)
                continue;
            std::string const ending = std::string(kind.name) + " in the given string representation format";
            EXPECT_EQ(failureOf([&] { kind.load("0x3c0a", encoding); }),
                      "InvalidFormat: Don't know how to initialize " + ending);
            EXPECT_EQ(failureOf([&] { kind.render(Bytes(kind.size), encoding); }),
                      "InvalidFormat: Don't know how to represent " + ending);
        }
}

TEST(Identifier, IsStreamedAsDottedBytes)
{
    std::ostringstream out;
    out << std::oct << KLV::Key(counting(16).data()) << ' ' << Types::UMID32(repeated(32, 0xAB).data());
    EXPECT_EQ(out.str(), KEY.render(counting(16), DOTTED) + ' ' + UMID32.render(repeated(32, 0xAB), DOTTED));
}

TEST(LocalTag, IsStaticByItsFirstByte)
{
    for (int first = 0; first < 256; ++first)
        EXPECT_EQ(Types::LocalTag(counting(2, static_cast<unsigned char>(first)).data()).isStaticLocalTag(),
                  first >= 1 && first <= 127);
}

TEST(UniversalLabel, ComparesInPart)
{
    Types::UniversalLabel const a(counting(16).data());
    Types::UniversalLabel b(a);
    b[7] = 0x17;
    Types::UniversalLabel mask(repeated(16, 0xFF).data());

    EXPECT_EQ(Types::compare(a, a), 16);
    EXPECT_EQ(Types::compare(a, b), 7);
    EXPECT_TRUE(Types::compareN(a, b, 7));
    EXPECT_FALSE(Types::compareN(a, b, 8));
    EXPECT_TRUE(Types::compareN(a, a, 255));
    EXPECT_FALSE(Types::compareMasked(a, b, mask));
    mask[7] = 0xEF;
    EXPECT_TRUE(Types::compareMasked(a, b, mask));
}
