#pragma once

#include "KLV/Key.h"
#include "Platform/Export.h"
#include "Types/FixedSizeUID.h"

namespace Vantry { namespace Types {

/// A name from a SMPTE register (SMPTE 298M): 16 bytes.
class VANTRY_EXPORT UniversalLabel : public Concrete<UniversalLabel, FixedSizeUID<UniversalLabel, 16>>
{
public:
    /// Copies 16 bytes.
    constexpr explicit UniversalLabel(unsigned char const * bytes) noexcept : Concrete(bytes) {}

    /// Reads 16 bytes.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit UniversalLabel(KLV::Value & source) : Concrete(source) {}

    /// The bytes of a key.
    UniversalLabel(KLV::Key const & key) noexcept : Concrete(key.rawBuffer()) {}

    /// Reads text: dotted bytes or OID, which is the native form.
    ///
    /// \throws Exceptions::InvalidFormat for another form.
    /// \throws Exceptions::InvalidLength, Exceptions::InvalidLabel when the
    ///         text doesn't follow its form.
    UniversalLabel(unsigned short const * text, StringRepresentationEncodingType encoding) : Concrete(text, encoding) {}
};

/// Whether both labels agree in all bits that are set in `mask`.
VANTRY_EXPORT bool compareMasked(UniversalLabel const & a, UniversalLabel const & b,
                                 UniversalLabel const & mask) noexcept;

/// Whether the first `n` bytes are equal; from 16 on, all of them.
VANTRY_EXPORT bool compareN(UniversalLabel const & a, UniversalLabel const & b, unsigned char n) noexcept;

/// How many bytes are equal ahead of the first that differs, 0 to 16.
VANTRY_EXPORT unsigned char compare(UniversalLabel const & a, UniversalLabel const & b) noexcept;

extern template class FixedSizeUID<UniversalLabel, 16>;
extern template class Concrete<UniversalLabel, FixedSizeUID<UniversalLabel, 16>>;

}}
