#include "PacketLines.h"

#include "KLV/Packet.h"
#include "KeyName.h"
#include "PackFacts.h"
#include "Text.h"

#include <algorithm>
#include <fmt/compile.h>
#include <iterator>
#include <string_view>

// Files have millions of packets: the lines are put together in place, without
// a tree of values or a string of their own.

namespace Vantry { namespace Application {

namespace {

/// "06.0e.2b.34...": the key in dotted lower-case hexadecimal.
class KeyText
{
public:
    explicit KeyText(KLV::Key const & key)
    {
        static char const DIGITS[] = "0123456789abcdef";
        char * next = text_;
        for (int i = 0; i < BYTES; ++i)
        {
            *next++ = DIGITS[key[i] >> 4];
            *next++ = DIGITS[key[i] & 15];
            *next++ = '.';
        }
    }

    operator std::string_view() const { return std::string_view(text_, 3 * BYTES - 1); }

private:
    static constexpr int BYTES = 16;

    char text_[3 * BYTES];
};

// Names may come from a user's schema and hold anything.
void appendEscaped(fmt::memory_buffer & text, std::string_view name)
{
    for (char c : name)
        if (isControl(c))
            fmt::format_to(std::back_inserter(text), "\\u{:04x}", +c);
        else
        {
            if (c == '"' || c == '\\')
                text.push_back('\\');
            text.push_back(c);
        }
}

}

void PlainPacketLines::packet(fmt::memory_buffer & text, KLV::Packet const & packet, PackFacts const * facts,
                              bool cut) const
{
    fmt::format_to(std::back_inserter(text), FMT_COMPILE("{:>12}  {}  {:>12}  "), packet.keyAbsoluteOffset(),
                   std::string_view(KeyText(packet.key())), packet.length());
    std::size_t const name = text.size();
    appendKeyName(text, packet.key(), sets_);
    std::replace_if(text.begin() + name, text.end(), isControl, ' '); // one line
    if (facts != nullptr)
        facts->appendPlain(text);
    text.append(std::string_view(cut ? ", cut\n" : "\n"));
}

void PlainPacketLines::gap(fmt::memory_buffer & text, UInt64 offset, UInt64 size) const
{
    fmt::format_to(std::back_inserter(text), "{:>12}  {:<47}  {:>12}  skipped\n", offset, '-', size);
}

void JsonPacketLines::packet(fmt::memory_buffer & text, KLV::Packet const & packet, PackFacts const * facts,
                             bool cut) const
{
    fmt::format_to(
        std::back_inserter(text), FMT_COMPILE(R"({{"offset": {}, "key": "{}", "ber": {}, "length": {}, "name": ")"),
        packet.keyAbsoluteOffset(), std::string_view(KeyText(packet.key())), packet.berLength(), packet.length());
    fmt::memory_buffer name;
    appendKeyName(name, packet.key(), sets_);
    appendEscaped(text, std::string_view(name.data(), name.size()));
    text.push_back('"');
    if (facts != nullptr)
    {
        text.append(std::string_view(", "));
        facts->appendJson(text);
    }
    text.append(std::string_view(cut ? ", \"cut\": true}\n" : "}\n"));
}

void JsonPacketLines::gap(fmt::memory_buffer & text, UInt64 offset, UInt64 size) const
{
    fmt::format_to(std::back_inserter(text), "{{\"offset\": {}, \"skipped\": {}}}\n", offset, size);
}

}}
