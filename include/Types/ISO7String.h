#pragma once

#include "Types/Concrete.h"
#include "Types/VariableSizeType.h"

namespace Vantry { namespace Types {

/// Text of 7-bit characters (ISO 646), one byte each. Other bytes pass through
/// unchanged.
///
/// What was read keeps its bytes, with or without a zero at the end; what is
/// made from text is written with one.
class VANTRY_EXPORT ISO7String : public Concrete<ISO7String, VariableSizeType>
{
public:
    /// Reads all that remains.
    ///
    /// \throws Exceptions::InvalidLength when that is 4 GiB or more, or when the source
    ///         ends before; then it carries the bytes that there were.
    explicit ISO7String(KLV::Value & source);

    explicit ISO7String(char const * text);

    /// The text, which a zero ends.
    char const * value() const noexcept { return native_.c_str(); }

    /// Characters of the text. Text that was read counts up to its last byte,
    /// with at least one zero at the end unless it is empty.
    unsigned short size() const noexcept;

    /// Characters up to the first zero; FFFFh when the text was not read and
    /// thus holds none.
    unsigned short stringLength() const noexcept;

private:
    Templates::string native_;
};

extern template class Concrete<ISO7String, VariableSizeType>;

}}
