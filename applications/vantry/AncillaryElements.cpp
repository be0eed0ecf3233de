#include "AncillaryElements.h"

#include "BigEndianText.h"

#include <algorithm>
#include <iterator>

namespace Vantry { namespace Application {

namespace {

std::size_t const COUNT_SIZE = 2;

// What stands ahead of each payload.
std::size_t const LINE_NUMBER = 0;
std::size_t const WRAPPING_TYPE = 2;
std::size_t const SAMPLE_CODING = 3;
std::size_t const SAMPLE_COUNT = 4;
std::size_t const ARRAY_COUNT = 6;
std::size_t const ELEMENT_SIZE = 10;
std::size_t const HEADER_SIZE = 14;

unsigned int const MOST_LINES = 2048;
unsigned int const MOST_PACKETS = 4096;

// Frame, fields 1 and 2, progressive; the same in the horizontal blanking.
char const WRAPPING_TYPES[] = {0x01, 0x02, 0x03, 0x04, 0x11, 0x12, 0x13, 0x14};

// Of samples: with one bit, for lines alone; with eight, with ten; and those
// with errors of parity, for packets alone.
unsigned int const FIRST_EIGHT_BITS = 4;
unsigned int const FIRST_TEN_BITS = 7;
unsigned int const FIRST_WITH_ERRORS = 10;
unsigned int const LAST_CODING = 12;

// A packet's identifiers and the count of its data words come ahead of those,
// and a checksum, which may be left out, behind them.
unsigned int const WORDS_AHEAD = 3;

/// A line or packet, and what is behind it in the stream.
class Payload
{
public:
    /// \param from  its header, and all that follows
    explicit Payload(std::string_view from) : from_(from) {}

    bool isPlausible() const
    {
        return numberAt<UInt16>(from_, LINE_NUMBER) < MOST_LINES && isWrappingType(from_[WRAPPING_TYPE]) &&
               coding() >= 1 && coding() <= LAST_CODING && numberAt<UInt32>(from_, ELEMENT_SIZE) == 1;
    }

    UInt64 size() const
    {
        UInt64 const array = numberAt<UInt32>(from_, ARRAY_COUNT);
        return HEADER_SIZE + (array % 4 == 0 ? array : samples());
    }

    bool isPacket() const
    {
        if (coding() < FIRST_EIGHT_BITS || coding() >= FIRST_WITH_ERRORS || from_.size() < HEADER_SIZE + 4)
            return coding() >= FIRST_WITH_ERRORS;
        bool const isTenBits = coding() >= FIRST_TEN_BITS;
        unsigned int const words = numberAt<UInt32>(from_, HEADER_SIZE);
        unsigned int const dataCount = isTenBits ? words >> 2 & 0xFF : words >> 8 & 0xFF;
        return samples() == dataCount + WORDS_AHEAD || samples() == dataCount + WORDS_AHEAD + 1;
    }

private:
    static bool isWrappingType(char type)
    {
        return std::find(std::begin(WRAPPING_TYPES), std::end(WRAPPING_TYPES), type) != std::end(WRAPPING_TYPES);
    }

    unsigned int coding() const { return static_cast<unsigned char>(from_[SAMPLE_CODING]); }
    unsigned int samples() const { return numberAt<UInt16>(from_, SAMPLE_COUNT); }

    std::string_view from_;
};

}

std::optional<EssenceKind> kindOfElements(std::string_view head)
{
    bool hasPayload = false;
    bool arePackets = true;
    while (head.size() >= COUNT_SIZE)
    {
        unsigned int const count = numberAt<UInt16>(head, 0);
        if (count > MOST_PACKETS)
            return std::nullopt;
        head.remove_prefix(COUNT_SIZE);
        for (unsigned int i = 0; i < count && head.size() >= HEADER_SIZE; ++i)
        {
            Payload const payload(head);
            if (!payload.isPlausible())
                return std::nullopt;
            hasPayload = true;
            arePackets = arePackets && payload.isPacket();
            head.remove_prefix(std::min<UInt64>(payload.size(), head.size()));
        }
    }
    if (!hasPayload)
        return std::nullopt;
    return arePackets ? EssenceKind::ANCILLARY_PACKETS : EssenceKind::VBI_LINES;
}

}}
