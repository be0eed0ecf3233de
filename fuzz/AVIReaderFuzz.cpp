// Walks any bytes as an AVI stream, and stops when its chunks hold more bytes
// than there are.

#include "DataIO/Chain.h"
#include "DataIO/SliceReader.h"
#include "Essence/AVI/AVIReader.h"
#include "support/QueuedBytes.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    using namespace Vantry;

    DataIO::SliceReader reader(Tests::queuedBytes(data, size));
    Essence::AVI::AVIReader avi(reader);
    if (avi.initialize() == nullptr)
        return 0;

    UInt64 total = 0;
    unsigned int id = 0;
    for (DataIO::Chain chain; avi.read(id, chain); chain.clear())
        total += chain.data_size();
    if (total > size)
        std::abort();

    for (unsigned int n = 0; n < avi.streamCount(); ++n)
        if (avi.info(n).formatBlock.size() > size)
            std::abort();
    return 0;
}
