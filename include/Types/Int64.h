#pragma once

#include "Types/SimpleTypes.h"

namespace Vantry { namespace Types {

/// A signed number of 64 bits: 8 bytes, high byte first.
class VANTRY_EXPORT Int64 : public Concrete<Int64, SimpleTypes<Platform::Int64>>
{
public:
    /// Reads the number.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit Int64(KLV::Value & source) : Concrete(source) {}

    Int64(Platform::Int64 value) noexcept : Concrete(value) {}
};

extern template class Concrete<Int64, SimpleTypes<Platform::Int64>>;

}}
