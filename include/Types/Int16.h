#pragma once

#include "Types/SimpleTypes.h"

namespace Vantry { namespace Types {

/// A signed number of 16 bits: 2 bytes, high byte first.
class VANTRY_EXPORT Int16 : public Concrete<Int16, SimpleTypes<Platform::Int16>>
{
public:
    /// Reads the number.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit Int16(KLV::Value & source) : Concrete(source) {}

    Int16(Platform::Int16 value) noexcept : Concrete(value) {}
};

extern template class Concrete<Int16, SimpleTypes<Platform::Int16>>;

}}
