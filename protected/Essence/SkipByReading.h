#pragma once

#include "DataIO/Slice.h"

namespace Vantry { namespace Essence {

/// Passes over up to `howMuch` bytes of a source that gives slices of its own
/// size, and puts back what was read too much. An empty slice is no end: each
/// read gets the source further.
template <class Impl>
UInt64 skipByReading(Impl & source, UInt64 howMuch)
{
    UInt64 skipped = 0;
    while (skipped < howMuch && !source.ended())
    {
        UInt64 const rest = howMuch - skipped;
        Templates::auto_ptr<DataIO::Slice> slice = source.read(rest);
        if (slice->size() > rest)
            source.giveBack(slice->splice(slice->begin() + rest));
        skipped += slice->size();
    }
    return skipped;
}

}}
