#pragma once

#include "Types/UInt8.h"

namespace Vantry { namespace Types {

/// How a picture is turned and mirrored: the number of the orientation, one byte.
class VANTRY_EXPORT Orientation : public Concrete<Orientation, UInt8>
{
public:
    /// Reads the number.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit Orientation(KLV::Value & source) : Concrete(source) {}

    Orientation(unsigned char value) noexcept : Concrete(value) {}
};

extern template class Concrete<Orientation, UInt8>;

}}
