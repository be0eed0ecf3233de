#pragma once

#include "Types/Concrete.h"
#include "Types/VariableSizeType.h"

namespace Vantry { namespace Types {

/// Text in UTF-16, two bytes for each code unit.
///
/// What was read keeps its bytes, with or without a zero at the end; what is
/// made from text is written with one.
class VANTRY_EXPORT UTF16String : public Concrete<UTF16String, VariableSizeType>
{
public:
    /// Reads all that remains; the text ends at the first zero.
    ///
    /// \throws Exceptions::InvalidLength when that is an odd number of bytes,
    ///         or when the source ends before; then it carries the bytes that
    ///         there were.
    explicit UTF16String(KLV::Value & source);

    explicit UTF16String(unsigned short const * text);

    /// The text, which a zero ends.
    unsigned short const * value() const noexcept { return native_.c_str(); }

    /// Code units of the text, without a zero at its end.
    unsigned short size() const noexcept;
    unsigned short stringLength() const noexcept { return size(); }

private:
    Templates::wstring native_;
};

extern template class Concrete<UTF16String, VariableSizeType>;

}}
