#pragma once

#include "Types/Concrete.h"
#include "Types/FixedSizeType.h"

namespace Vantry { namespace Types {

/// Yes or no: one byte, 0 for false and anything else for true. A byte that
/// was read stays as it is.
class VANTRY_EXPORT Boolean : public Concrete<Boolean, FixedSizeType<SimpleDataType, 1>>
{
public:
    /// Reads the byte.
    ///
    /// \throws Exceptions::InvalidLength when the source has none left.
    explicit Boolean(KLV::Value & source) : Concrete(source) {}

    /// Stores 1 or 0.
    explicit Boolean(bool value) noexcept { *bytes() = value ? 1 : 0; }

    bool value() const noexcept { return *bytes() != 0; }

    bool equals(Boolean const & other) const noexcept { return value() == other.value(); }
    bool isLess(Boolean const & other) const noexcept { return value() < other.value(); }
};

extern template class Concrete<Boolean, FixedSizeType<SimpleDataType, 1>>;

}}
