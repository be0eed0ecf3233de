#include "DataIO/MaskedWord.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>

namespace Vantry { namespace DataIO {

namespace {

using Byte = unsigned char;
using Anchor = MaskedWord::Anchor;

// Many bytes that are worked on at once; the compiler knows the best way on
// each processor.
using Vector = Byte __attribute__((vector_size(32)));

std::ptrdiff_t const STEP = 4 * sizeof(Vector);

// What comes from a file is out of the processor's caches, and its own look
// ahead ends with each page.
std::ptrdiff_t const LOOK_AHEAD = 4096;
std::ptrdiff_t const CACHE_LINE = 64;

// A search for one byte pays where it is rare. When two are so close together
// the search goes on by two bytes at once, for so many positions.
std::ptrdiff_t const CLOSE = 1024;
std::ptrdiff_t const STRETCH = 8192;

// More bits tell more, and in essence most bytes that repeat are 0 or FFh.
unsigned int rarity(Anchor const & anchor) noexcept
{
    bool const common = anchor.value == 0x00 || anchor.value == 0xFF;
    return 2 * static_cast<unsigned int>(__builtin_popcount(anchor.mask)) + (common ? 0 : 1);
}

// Passes steps that have both bytes nowhere in their places.
[[gnu::always_inline]] inline Byte const * passSteps(Byte const * begin, Byte const * last, Anchor const & one,
                                                     Anchor const & two) noexcept
{
    Vector const oneMask = Vector{} + one.mask;
    Vector const oneValue = Vector{} + one.value;
    Vector const twoMask = Vector{} + two.mask;
    Vector const twoValue = Vector{} + two.value;

    for (; last - begin >= STEP; begin += STEP)
    {
        for (Byte const * line = begin; line != begin + STEP; line += CACHE_LINE)
            __builtin_prefetch(line + LOOK_AHEAD);

        Vector hits{};
        for (Byte const * at = begin; at != begin + STEP; at += sizeof(Vector))
        {
            Vector ones;
            Vector twos;
            std::memcpy(&ones, at + one.offset, sizeof(Vector));
            std::memcpy(&twos, at + two.offset, sizeof(Vector));
            hits |= reinterpret_cast<Vector>(((ones & oneMask) == oneValue) & ((twos & twoMask) == twoValue));
        }

        UInt64 parts[sizeof(Vector) / sizeof(UInt64)];
        std::memcpy(parts, &hits, sizeof(Vector));
        if ((parts[0] | parts[1] | parts[2] | parts[3]) != 0)
            break;
    }
    return begin;
}

#if defined(__x86_64__)

// The same for processors that have registers for a whole vector.
[[gnu::target("avx2")]] Byte const * passStepsWide(Byte const * begin, Byte const * last, Anchor const & one,
                                                   Anchor const & two) noexcept
{
    return passSteps(begin, last, one, two);
}

Byte const * passStepsFast(Byte const * begin, Byte const * last, Anchor const & one, Anchor const & two) noexcept
{
    static bool const wide = __builtin_cpu_supports("avx2") != 0;
    return wide ? passStepsWide(begin, last, one, two) : passSteps(begin, last, one, two);
}

#else

Byte const * passStepsFast(Byte const * begin, Byte const * last, Anchor const & one, Anchor const & two) noexcept
{
    return passSteps(begin, last, one, two);
}

#endif

}

MaskedWord::MaskedWord(UInt32 word, UInt32 mask) noexcept :
    word_(word), mask_(mask), anchors_{anchor(0), anchor(1), anchor(2), anchor(3)}
{
    std::sort(std::begin(anchors_), std::end(anchors_),
              [](Anchor const & left, Anchor const & right) { return rarity(left) > rarity(right); });
}

Byte const * MaskedWord::find(Byte const * begin, Byte const * end) const noexcept
{
    if (end - begin < std::ptrdiff_t(SIZE))
        return end;

    // Behind the last position that has four bytes.
    Byte const * const last = end - SIZE + 1;
    Byte const * at = begin;
    unsigned int turn = 0;
    bool tried = false;
    while (at != last)
    {
        Anchor const & anchor = anchors_[turn];
        if (anchor.mask == 0xFF)
        {
            Byte const * const from = at + anchor.offset;
            void const * const hit = std::memchr(from, anchor.value, static_cast<std::size_t>(last - at));
            if (hit == nullptr)
                return end;

            std::ptrdiff_t const gap = static_cast<Byte const *>(hit) - from;
            at += gap;
            if (matches(at))
                return at;
            ++at;
            if (gap >= CLOSE)
                continue;
        }

        // The other byte may be rarer, unless that was the one before.
        turn = 1 - turn;
        tried = !tried;
        if (tried)
            continue;

        Byte const * const stretchEnd = last - at < STRETCH ? last : at + STRETCH;
        at = findByAnchors(at, stretchEnd);
        if (at != stretchEnd)
            return at;
    }
    return end;
}

Anchor MaskedWord::anchor(unsigned int offset) const noexcept
{
    return {offset, static_cast<Byte>(mask_ >> 8 * offset), static_cast<Byte>(word_ >> 8 * offset)};
}

// The first match that starts before `last`, or that.
Byte const * MaskedWord::findByAnchors(Byte const * begin, Byte const * last) const noexcept
{
    for (;;)
    {
        begin = passStepsFast(begin, last, anchors_[0], anchors_[1]);
        Byte const * const stepEnd = last - begin < STEP ? last : begin + STEP;
        begin = findOneByOne(begin, stepEnd);
        if (begin != stepEnd || stepEnd == last)
            return begin;
    }
}

Byte const * MaskedWord::findOneByOne(Byte const * begin, Byte const * last) const noexcept
{
    while (begin != last && !matches(begin))
        ++begin;
    return begin;
}

}}
