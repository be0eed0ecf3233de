// Does all that there is to do with a file that may be anything, and once more
// with a small search limit.

#include "support/BytesSource.h"
#include "support/Schema.h"
#include "support/UseReader.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    using namespace Vantry;
    static Tests::Schema const schema;
    for (UInt64 searchLimit : {65536, 8})
    {
        Tests::BytesSource source(Tests::Bytes(data, data + size));
        MXFIO::Reader2 reader(source, schema.dictionary(), searchLimit);
        Tests::use(reader);
    }
    return 0;
}
