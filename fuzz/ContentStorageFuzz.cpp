// Opens the essence containers of a file that may be anything, seeks in them
// and reads their elements, by both kinds of readers.

#include "Schema/Dictionaries.h"
#include "support/BytesSource.h"
#include "support/UseContainer.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace Vantry;

template <class Reader>
void useContainers(Tests::Bytes const & file)
{
    static auto const dictionary = Schema::builtInDictionary();
    Tests::BytesSource source(file);
    Reader reader(source, dictionary, 65536);
    Tests::attempt(
        [&]
        {
            Tests::forEachContainer(reader,
                                    [&](MXFIO::ContentStorageReader & content)
                                    {
                                        if (Tests::use(content) > file.size())
                                            std::abort();
                                    });
        });
}

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    Tests::Bytes const file(data, data + size);
    useContainers<MXFIO::Reader2>(file);
    useContainers<MXFIO::Reader>(file);
    return 0;
}
