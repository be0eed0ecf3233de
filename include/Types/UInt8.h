#pragma once

#include "Types/SimpleTypes.h"

namespace Vantry { namespace Types {

/// An unsigned number of 8 bits: one byte.
class VANTRY_EXPORT UInt8 : public Concrete<UInt8, SimpleTypes<Platform::UInt8>>
{
public:
    /// Reads the number.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit UInt8(KLV::Value & source) : Concrete(source) {}

    UInt8(Platform::UInt8 value) noexcept : Concrete(value) {}
};

extern template class Concrete<UInt8, SimpleTypes<Platform::UInt8>>;

}}
