#pragma once

#include "Types/Concrete.h"
#include "Types/J2KDefault.h"

namespace Vantry { namespace Types {

/// How a JPEG 2000 codestream is quantised by default: the parameters of its
/// QCD marker (ISO/IEC 15444-1), at least 2 bytes.
///
/// Wire form: Sqcd (1 byte), SPqcd (the rest).
class VANTRY_EXPORT J2KQuantisationDefault : public Concrete<J2KQuantisationDefault, J2KDefault>
{
public:
    /// Reads all that remains.
    ///
    /// \throws Exceptions::InvalidValue for less than 2 bytes.
    /// \throws Exceptions::InvalidLength when the source ends before; it
    ///         carries the bytes that there were.
    explicit J2KQuantisationDefault(KLV::Value & source);

    /// \throws Exceptions::InvalidValue when SPqcd is empty.
    J2KQuantisationDefault(unsigned char sqcd, unsigned char const * sPgcd, Platform::UInt64 size);

    /// Quantisation style.
    unsigned char sqcd() const noexcept;

    /// Step sizes.
    DataStream const & sPgcd() const noexcept { return tail(); }
};

extern template class Concrete<J2KQuantisationDefault, J2KDefault>;

}}
