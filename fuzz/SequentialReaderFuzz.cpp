// Reads anything from front to back; the first byte says how much is given at
// a read.

#include "Exceptions/BaseException.h"
#include "IndexTables/IndexTableSegment.h"
#include "MXFIO/SequentialReader.h"
#include "support/BytesSource.h"
#include "support/Schema.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace Vantry;

// Whether there is more; a failure ends nothing.
bool next(MXFIO::SequentialReader & reader)
{
    try
    {
        return reader.next(4096);
    }
    catch (Exceptions::BaseException const &)
    {
        return true;
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    if (size == 0)
        return 0;

    static Tests::Schema const schema;
    Tests::BytesSource source(Tests::Bytes(data + 1, data + size), data[0] + 1u);
    MXFIO::SequentialReader reader(source, schema.dictionary());
    for (UInt64 before = ~UInt64(0); next(reader); before = source.remaining())
        if (source.remaining() >= before)
            std::abort();
    return 0;
}
