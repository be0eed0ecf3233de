#pragma once

#include "Types/Concrete.h"
#include "Types/FixedSizeType.h"

namespace Vantry { namespace Types {

/// One code unit of UTF-16 text: 2 bytes.
class VANTRY_EXPORT UTF16 : public Concrete<UTF16, FixedSizeType<SimpleDataType, 2>>
{
public:
    /// Reads the code unit.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit UTF16(KLV::Value & source) : Concrete(source) {}

    UTF16(unsigned short value) noexcept { number<Platform::UInt16>(0, value); }

    unsigned short value() const noexcept { return number<Platform::UInt16>(0); }
};

extern template class Concrete<UTF16, FixedSizeType<SimpleDataType, 2>>;

}}
