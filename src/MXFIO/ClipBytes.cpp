#include "MXFIO/ClipBytes.h"

#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/Seeker.h"

#include <algorithm>

namespace Vantry { namespace MXFIO {

namespace {

Int64 const UNKNOWN = -1;

Int64 endOf(ContentStorageReader & reader)
{
    Int64 const endOfIndex = reader.seeker().endOfIndex();
    if (endOfIndex >= 0)
        return endOfIndex;

    Templates::Rational<Int64> const units = reader.storedUnits();
    return units < 0 ? UNKNOWN : units.numerator() / units.denominator();
}

}

ClipBytes::ClipBytes(ContentStorageReader & reader) : reader_(reader), end_(endOf(reader)) {}

bool ClipBytes::ahead(Int64 editUnit, UInt64 length, UInt64 & bytes) const
{
    bytes = 0;
    if (editUnit <= 0)
        return true;

    bool const isBehind = end_ >= 0 && editUnit >= end_;
    bool const isKnown = reader_.isSeekExact() ? byIndex(editUnit, bytes) : byLength(editUnit, length, bytes);
    bytes = isKnown ? std::min(bytes, length) : length;
    return isKnown || isBehind;
}

// The index counts from the start of the clip's value, or from its key.
bool ClipBytes::byIndex(Int64 editUnit, UInt64 & bytes) const
{
    UInt64 start = 0;
    UInt64 place = 0;
    Seeker & seeker = reader_.seeker();
    if (!seeker.bodyOffsetOf(0, start) || !seeker.bodyOffsetOf(editUnit, place) || place < start)
        return false;
    bytes = place - start;
    return true;
}

bool ClipBytes::byLength(Int64 editUnit, UInt64 length, UInt64 & bytes) const
{
    auto const units = static_cast<UInt64>(std::max<Int64>(end_, 0));
    if (units == 0 || length % units != 0 || static_cast<UInt64>(editUnit) > units)
        return false;
    bytes = length / units * static_cast<UInt64>(editUnit);
    return true;
}

}}
