#pragma once

#include "DataIO/Slice.h"

#include <cstring>

namespace Vantry { namespace Essence {

/// A record of plain bytes that a slice begins with.
template <class Record>
Record recordIn(DataIO::Slice const & slice)
{
    Record record;
    std::memcpy(static_cast<void *>(&record), slice.begin(), sizeof(Record));
    return record;
}

}}
