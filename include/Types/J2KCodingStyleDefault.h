#pragma once

#include "Types/Concrete.h"
#include "Types/J2KDefault.h"

namespace Vantry { namespace Types {

/// How a JPEG 2000 codestream is coded by default: the parameters of its COD
/// marker (ISO/IEC 15444-1), at least 10 bytes.
///
/// Wire form: Scod (1 byte), SGcod (4 bytes), SPcod (the rest).
class VANTRY_EXPORT J2KCodingStyleDefault : public Concrete<J2KCodingStyleDefault, J2KDefault>
{
public:
    /// Reads all that remains.
    ///
    /// \throws Exceptions::InvalidValue for less than 10 bytes.
    /// \throws Exceptions::InvalidLength when the source ends before; it
    ///         carries the bytes that there were.
    explicit J2KCodingStyleDefault(KLV::Value & source);

    /// \throws Exceptions::InvalidValue when SPcod has less than 5 bytes.
    J2KCodingStyleDefault(unsigned char scod, unsigned int sGcod, unsigned char const * spcod,
                          Platform::UInt64 spcodSize);

    /// Coding style.
    unsigned char scod() const noexcept;

    /// Progression order, number of layers and component transformation, as
    /// one number.
    unsigned int sGcod() const noexcept;

    /// Decomposition levels, code-blocks, transformation and precincts.
    DataStream const & spcod() const noexcept { return tail(); }
};

extern template class Concrete<J2KCodingStyleDefault, J2KDefault>;

}}
