// Any bytes as a value of any type: the first byte tells the type, the second
// that of a collection's elements, the third by how much the length claims
// more than there is.

#include "support/ValueCheck.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    using namespace Vantry;
    using Types::Identifiers::Identifier;

    if (size < 3)
        return 0;

    Tests::Bytes const bytes(data + 3, data + size);
    UInt64 const excess = (UInt64(1) << data[2] % 63) - 1;
    Tests::checkValue(bytes, bytes.size() + excess, Identifier(data[0]), Identifier(data[1]));
    return 0;
}
