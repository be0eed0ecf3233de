#pragma once

#include "Types/SimpleTypes.h"

namespace Vantry { namespace Types {

/// An unsigned number of 64 bits: 8 bytes, high byte first.
class VANTRY_EXPORT UInt64 : public Concrete<UInt64, SimpleTypes<Platform::UInt64>>
{
public:
    /// Reads the number.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit UInt64(KLV::Value & source) : Concrete(source) {}

    UInt64(Platform::UInt64 value) noexcept : Concrete(value) {}
};

extern template class Concrete<UInt64, SimpleTypes<Platform::UInt64>>;

}}
