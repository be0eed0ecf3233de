#include "Types/UniversalLabel.h"

#include <algorithm>
#include <cstring>

namespace Vantry { namespace Types {

bool compareMasked(UniversalLabel const & a, UniversalLabel const & b, UniversalLabel const & mask) noexcept
{
    unsigned char difference = 0;
    for (int i = 0; i < mask.size(); ++i)
        difference |= static_cast<unsigned char>((a.rawBuffer()[i] ^ b.rawBuffer()[i]) & mask.rawBuffer()[i]);
    return difference == 0;
}

bool compareN(UniversalLabel const & a, UniversalLabel const & b, unsigned char n) noexcept
{
    return std::memcmp(a.rawBuffer(), b.rawBuffer(), std::min<unsigned short>(n, a.size())) == 0;
}

unsigned char compare(UniversalLabel const & a, UniversalLabel const & b) noexcept
{
    unsigned char const * const begin = a.rawBuffer();
    unsigned char const * const difference = std::mismatch(begin, begin + a.size(), b.rawBuffer()).first;
    return static_cast<unsigned char>(difference - begin);
}

}}
