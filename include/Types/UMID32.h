#pragma once

#include "Platform/Export.h"
#include "Types/FixedSizeUID.h"

#include <iosfwd>

namespace Vantry { namespace Types {

/// A basic unique material identifier (SMPTE 330M): 32 bytes.
class VANTRY_EXPORT UMID32 : public Concrete<UMID32, FixedSizeUID<UMID32, 32>>
{
public:
    /// Copies 32 bytes.
    constexpr explicit UMID32(unsigned char const * bytes) noexcept : Concrete(bytes) {}

    /// Reads 32 bytes.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit UMID32(KLV::Value & source) : Concrete(source) {}

    /// Reads text: dotted bytes or hexadecimal, which is the native form.
    ///
    /// \throws Exceptions::InvalidFormat for another form.
    /// \throws Exceptions::InvalidLength, Exceptions::InvalidLabel when the
    ///         text doesn't follow its form.
    UMID32(unsigned short const * text, StringRepresentationEncodingType encoding) : Concrete(text, encoding) {}
};

/// Writes the dotted bytes.
VANTRY_EXPORT std::ostream & operator<<(std::ostream & out, UMID32 const & umid);

extern template class FixedSizeUID<UMID32, 32>;
extern template class Concrete<UMID32, FixedSizeUID<UMID32, 32>>;

}}
