#include "Platform/KeyedHash.h"

#include "Platform/Random.h"

namespace Vantry { namespace Platform {

namespace {

UInt64 randomWord()
{
    UInt64 word = 0;
    for (std::size_t i = 0; i < sizeof word; ++i)
        word = word << 8 | rand();
    return word;
}

}

KeyedHash::Key const & KeyedHash::processKey() noexcept
{
    static Key const key = {randomWord(), randomWord()};
    return key;
}

}}
