#pragma once

#include "Types/Concrete.h"
#include "Types/FixedSizeType.h"

namespace Vantry { namespace Types {

/// An integer of type `T`, `sizeof(T)` bytes on the wire. The eight classes
/// Int8 to UInt64 are made of it. They compare as numbers.
template <class T>
class VANTRY_EXPORT SimpleTypes : public FixedSizeType<SimpleDataType, sizeof(T)>
{
public:
    /// The number.
    T value() const noexcept { return this->template number<T>(0); }

    bool equals(SimpleTypes const & other) const noexcept { return value() == other.value(); }
    bool isLess(SimpleTypes const & other) const noexcept { return value() < other.value(); }

protected:
    explicit SimpleTypes(KLV::Value & source) : FixedSizeType<SimpleDataType, sizeof(T)>(source) {}
    explicit SimpleTypes(T value) noexcept { this->template number<T>(0, value); }
};

}}
