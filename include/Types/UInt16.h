#pragma once

#include "Types/SimpleTypes.h"

namespace Vantry { namespace Types {

/// An unsigned number of 16 bits: 2 bytes, high byte first.
class VANTRY_EXPORT UInt16 : public Concrete<UInt16, SimpleTypes<Platform::UInt16>>
{
public:
    /// Reads the number.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit UInt16(KLV::Value & source) : Concrete(source) {}

    UInt16(Platform::UInt16 value) noexcept : Concrete(value) {}
};

extern template class Concrete<UInt16, SimpleTypes<Platform::UInt16>>;

}}
