#pragma once

#include "Types/UInt8.h"

namespace Vantry { namespace Types {

/// The signal standard of a picture: its number, one byte.
class VANTRY_EXPORT SignalStandard : public Concrete<SignalStandard, UInt8>
{
public:
    /// Reads the number.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit SignalStandard(KLV::Value & source) : Concrete(source) {}

    SignalStandard(unsigned char value) noexcept : Concrete(value) {}
};

extern template class Concrete<SignalStandard, UInt8>;

}}
