#pragma once

#include "DataIO/BufferSliceSource.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "Templates/SharedPtr.h"

#include <algorithm>

namespace Vantry { namespace Tests {

/// A source of a copy of the bytes, on one block, in slices of `pieceSize`.
inline Templates::SharedPtr<DataIO::SliceSource> queuedBytes(unsigned char const * bytes, UInt64 size,
                                                             UInt64 pieceSize = 100)
{
    DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(size);
    std::copy_n(bytes, size, block.block()->data());

    auto * const queue = new DataIO::BufferSliceSource;
    Templates::SharedPtr<DataIO::SliceSource> source(queue);
    for (UInt64 at = 0; at < size; at += pieceSize)
        queue->write(
            Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(block.block(), at, std::min(pieceSize, size - at))));
    queue->close();
    return source;
}

}}
