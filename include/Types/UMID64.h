#pragma once

#include "Platform/Export.h"
#include "Types/FixedSizeUID.h"

namespace Vantry { namespace Types {

/// An extended unique material identifier (SMPTE 330M): 64 bytes.
class VANTRY_EXPORT UMID64 : public Concrete<UMID64, FixedSizeUID<UMID64, 64>>
{
public:
    /// Copies 64 bytes.
    constexpr explicit UMID64(unsigned char const * bytes) noexcept : Concrete(bytes) {}

    /// Reads 64 bytes.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit UMID64(KLV::Value & source) : Concrete(source) {}

    /// Reads text: dotted bytes or hexadecimal, which is the native form.
    ///
    /// \throws Exceptions::InvalidFormat for another form.
    /// \throws Exceptions::InvalidLength, Exceptions::InvalidLabel when the
    ///         text doesn't follow its form.
    UMID64(unsigned short const * text, StringRepresentationEncodingType encoding) : Concrete(text, encoding) {}
};

extern template class FixedSizeUID<UMID64, 64>;
extern template class Concrete<UMID64, FixedSizeUID<UMID64, 64>>;

}}
