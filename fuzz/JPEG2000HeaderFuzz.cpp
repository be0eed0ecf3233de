// Reads any bytes as the header of a codestream, and stops when it isn't what
// the bytes begin with.

#include "DataIO/SliceReader.h"
#include "DataIO/SyncWordFinder.h"
#include "Essence/JPEG2000/Header.h"
#include "Exceptions/BaseException.h"
#include "support/QueuedBytes.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    using namespace Vantry;
    using namespace Essence::JPEG2000;

    DataIO::SliceReader reader(Tests::queuedBytes(data, size));
    DataIO::SyncWordFinder finder(reader, 0xFF, 0xFF);
    CodestreamHeader codestream;
    try
    {
        auto const header = readHeader(codestream, finder, reader);
        if (header->size() != reader.absoluteOffset() || !std::equal(header->begin(), header->end(), data))
            std::abort();
    }
    catch (Exceptions::BaseException const &)
    {
        // Refused by name, which is an answer.
    }
    return 0;
}
