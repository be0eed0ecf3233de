#pragma once

#include "Types/SimpleTypes.h"

namespace Vantry { namespace Types {

/// A signed number of 32 bits: 4 bytes, high byte first.
class VANTRY_EXPORT Int32 : public Concrete<Int32, SimpleTypes<Platform::Int32>>
{
public:
    /// Reads the number.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit Int32(KLV::Value & source) : Concrete(source) {}

    Int32(Platform::Int32 value) noexcept : Concrete(value) {}
};

extern template class Concrete<Int32, SimpleTypes<Platform::Int32>>;

}}
