#pragma once

#include "KLV/Value.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Types/LocalTag.h"

namespace Vantry { namespace KLV {

/// One element of a local set with two-byte tags and lengths, which is the
/// coding of MXF: tag, length, value.
///
/// The value of the set is lent and outlives the element. The end of an
/// element leaves it behind the element's value, read or not.
class VANTRY_EXPORT LocalElement
{
public:
    VANTRY_CLASS_ALLOCATION

    /// Reads tag and length where the set's value stands. What the length
    /// claims may lie behind the end of the set.
    ///
    /// \throws Exceptions::InvalidLength when the set ends before the
    ///         element's value.
    explicit LocalElement(Value & set);
    LocalElement(LocalElement const &) = delete;
    LocalElement & operator=(LocalElement const &) = delete;

    Types::LocalTag const & tag() const noexcept { return tag_; }

    /// Bytes of the value, as the element claims.
    UInt16 length() const noexcept { return length_; }

    Value & value() noexcept { return value_; }
    Value const & value() const noexcept { return value_; }

private:
    Types::LocalTag tag_;
    UInt16 length_;
    Value value_;
};

}}
