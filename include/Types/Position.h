#pragma once

#include "Types/Int64.h"

namespace Vantry { namespace Types {

/// A position in edit units: a signed number of 64 bits,
/// 8 bytes on the wire.
class VANTRY_EXPORT Position : public Concrete<Position, Int64>
{
public:
    /// Reads the number.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit Position(KLV::Value & source) : Concrete(source) {}

    Position(Platform::Int64 value) noexcept : Concrete(value) {}
};

extern template class Concrete<Position, Int64>;

}}
