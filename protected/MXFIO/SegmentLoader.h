#pragma once

#include "Platform/Integers.h"

namespace Vantry { namespace MXFIO {

class IndexTableCache;
class Partition;
class Reader;

/// Edit units that the index of a partition covers.
struct IndexedRange
{
    Int64 first;

    /// The first one behind; the highest number for an index without end.
    Int64 end;

    bool isEmpty() const noexcept { return first >= end; }
};

/// Reads the index table segments of a partition into a cache, as far as they
/// can be read: whatever fails on the way ends them. The source stays where it is.
///
/// \return from the first edit unit of all these segments to the last; an
///         empty range where there are none of this index
IndexedRange loadSegments(Reader & reader, Partition & partition, unsigned int indexSID, IndexTableCache & cache);

}}
