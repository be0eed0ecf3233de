#pragma once

#include "Types/SimpleTypes.h"

namespace Vantry { namespace Types {

/// An unsigned number of 32 bits: 4 bytes, high byte first.
class VANTRY_EXPORT UInt32 : public Concrete<UInt32, SimpleTypes<Platform::UInt32>>
{
public:
    /// Reads the number.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit UInt32(KLV::Value & source) : Concrete(source) {}

    UInt32(Platform::UInt32 value) noexcept : Concrete(value) {}
};

extern template class Concrete<UInt32, SimpleTypes<Platform::UInt32>>;

}}
