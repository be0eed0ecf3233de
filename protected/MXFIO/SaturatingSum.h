#pragma once

#include "Platform/Integers.h"

#include <limits>

namespace Vantry { namespace MXFIO {

/// A position and a size that a file claims. A sum above 64 bits is 2^64 - 1,
/// behind the end of every source.
inline UInt64 saturatingSum(UInt64 left, UInt64 right) noexcept
{
    UInt64 const most = std::numeric_limits<UInt64>::max();
    return right > most - left ? most : left + right;
}

}}
