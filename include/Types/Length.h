#pragma once

#include "Types/Int64.h"

namespace Vantry { namespace Types {

/// A length in edit units, or -1 where it isn't known: a signed number of 64 bits,
/// 8 bytes on the wire.
class VANTRY_EXPORT Length : public Concrete<Length, Int64>
{
public:
    /// Reads the number.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit Length(KLV::Value & source) : Concrete(source) {}

    Length(Platform::Int64 value) noexcept : Concrete(value) {}
};

extern template class Concrete<Length, Int64>;

}}
