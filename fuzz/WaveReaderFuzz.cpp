// Reads any bytes as a wave, and stops when its data isn't a run of the input
// or is longer than that.
//
// Input: one byte for how much to read at once, and the stream.

#include "DataIO/BufferSliceSource.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "Essence/Converters/S331MMuxHelpers/PCMWaveReader.h"
#include "Exceptions/BaseException.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace Vantry;
using Essence::Converters::S331MMuxHelpers::PCMWaveReader;

Templates::SharedPtr<DataIO::SliceSource> sourceOf(DataIO::Block * block, UInt64 size)
{
    auto * const queue = new DataIO::BufferSliceSource;
    Templates::SharedPtr<DataIO::SliceSource> source(queue);
    for (UInt64 at = 0; at < size; at += 100)
        queue->write(
            Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(block, at, std::min<UInt64>(100, size - at))));
    queue->close();
    return source;
}

void readAll(PCMWaveReader & reader, UInt64 size, UInt64 atOnce)
{
    reader.preload();
    UInt64 total = 0;
    while (UInt64 const some = atOnce % 2 == 0 ? reader.read(atOnce)->size() : reader.skip(atOnce))
        total += some;
    if (total != reader.absoluteOffset() || total > size)
        std::abort();
}

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    if (size < 2)
        return 0;

    UInt64 const atOnce = UInt64(data[0]) + 1;
    UInt64 const streamSize = size - 1;
    DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(streamSize);
    std::copy_n(data + 1, streamSize, block.block()->data());
    try
    {
        PCMWaveReader reader(sourceOf(block.block(), streamSize));
        readAll(reader, streamSize, atOnce);
    }
    catch (Exceptions::BaseException const &)
    {
        // Refused by name, which is an answer.
    }
    return 0;
}
