#pragma once

#include "Types/SimpleTypes.h"

namespace Vantry { namespace Types {

/// A signed number of 8 bits: one byte.
class VANTRY_EXPORT Int8 : public Concrete<Int8, SimpleTypes<Platform::Int8>>
{
public:
    /// Reads the number.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit Int8(KLV::Value & source) : Concrete(source) {}

    Int8(Platform::Int8 value) noexcept : Concrete(value) {}
};

extern template class Concrete<Int8, SimpleTypes<Platform::Int8>>;

}}
