#pragma once

#include "Types/Concrete.h"
#include "Types/FixedSizeType.h"

namespace Vantry { namespace Types {

/// A component of a JPEG 2000 picture: three bytes, as in the SIZ marker of
/// the codestream (ISO/IEC 15444-1).
class VANTRY_EXPORT J2KPictureComponent : public Concrete<J2KPictureComponent, FixedSizeType<SimpleDataType, 3>>
{
public:
    /// Reads the three bytes.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit J2KPictureComponent(KLV::Value & source) : Concrete(source) {}

    J2KPictureComponent(unsigned char ssiz, unsigned char xrSiz, unsigned char yrSiz) noexcept
    {
        bytes()[0] = ssiz;
        bytes()[1] = xrSiz;
        bytes()[2] = yrSiz;
    }

    /// Bits of a sample less one; the top bit is set for signed samples.
    unsigned char ssiz() const noexcept { return bytes()[0]; }

    /// Distance of samples on the reference grid, horizontally.
    unsigned char xrSiz() const noexcept { return bytes()[1]; }

    /// Distance of samples on the reference grid, vertically.
    unsigned char yrSiz() const noexcept { return bytes()[2]; }
};

extern template class Concrete<J2KPictureComponent, FixedSizeType<SimpleDataType, 3>>;

}}
