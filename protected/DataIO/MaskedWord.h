#pragma once

#include "Platform/Integers.h"

namespace Vantry { namespace DataIO {

/// Four bytes to look for in memory, as a number whose lowest byte comes
/// first. Bits outside the mask don't matter.
class MaskedWord
{
public:
    static constexpr unsigned int SIZE = 4;

    /// One of the four bytes: which one, what to look at, and what to see.
    struct Anchor
    {
        unsigned int offset;
        unsigned char mask;
        unsigned char value;
    };

    MaskedWord(UInt32 word, UInt32 mask) noexcept;

    /// The four bytes at `data` as such a number.
    static UInt32 load(unsigned char const * data) noexcept
    {
        return UInt32(data[0]) | UInt32(data[1]) << 8 | UInt32(data[2]) << 16 | UInt32(data[3]) << 24;
    }

    bool matches(unsigned char const * data) const noexcept { return (load(data) & mask_) == word_; }

    /// The first match that lies wholly between the two, or `end`.
    unsigned char const * find(unsigned char const * begin, unsigned char const * end) const noexcept;

private:
    Anchor anchor(unsigned int offset) const noexcept;
    unsigned char const * findByAnchors(unsigned char const * begin, unsigned char const * last) const noexcept;
    unsigned char const * findOneByOne(unsigned char const * begin, unsigned char const * last) const noexcept;

    UInt32 word_;
    UInt32 mask_;

    // The one that is likely to be seen least comes first.
    Anchor anchors_[SIZE];
};

}}
