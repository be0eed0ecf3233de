#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace Platform {

/// An unsigned integer of any length, kept as digits of a base from 2 to 256.
///
/// Numbers that meet in an operation have one base; otherwise it throws
/// Exceptions::InvalidValue.
class VANTRY_EXPORT BigUInt
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \throws Exceptions::InvalidValue for another base.
    BigUInt(UInt64 value, unsigned short base);
    BigUInt(BigUInt const & other);
    BigUInt & operator=(BigUInt const & other);
    ~BigUInt();

    BigUInt & operator*=(BigUInt const & other);

    bool operator<(BigUInt const & other) const;
    bool operator<=(BigUInt const & other) const;
    bool operator>(BigUInt const & other) const;
    bool operator>=(BigUInt const & other) const;
    bool operator==(BigUInt const & other) const;
    bool operator!=(BigUInt const & other) const;

    /// Puts the number into `value`; false, and `value` unchanged, when it
    /// doesn't fit.
    bool value(UInt64 & value) const;

private:
    class Impl;
    Impl * impl_;
};

inline BigUInt operator*(BigUInt left, BigUInt const & right)
{
    return left *= right;
}

}}
