#pragma once

#include "Platform/Export.h"
#include "Templates/Containers.h"
#include "Types/Concrete.h"
#include "Types/FixedSizeType.h"
#include "Types/StringRepresentationEncodingType.h"

namespace Vantry { namespace Types {

/// Stands for a label inside a local set (SMPTE 336M): 2 bytes, high byte
/// first. Tags compare by the first byte, then by the second.
class VANTRY_EXPORT LocalTag : public Concrete<LocalTag, FixedSizeType<SimpleDataType, 2>>
{
public:
    /// Copies 2 bytes.
    constexpr explicit LocalTag(unsigned char const * bytes) noexcept : Concrete(bytes) {}

    /// Reads 2 bytes.
    ///
    /// \throws Exceptions::InvalidLength when the source has too few bytes
    ///         left; it carries them.
    explicit LocalTag(KLV::Value & source) : Concrete(source) {}

    /// Reads text: dotted bytes or hexadecimal, which is the native form.
    ///
    /// \throws Exceptions::InvalidFormat for another form.
    /// \throws Exceptions::InvalidLength, Exceptions::InvalidLabel when the
    ///         text doesn't follow its form.
    LocalTag(unsigned short const * text, StringRepresentationEncodingType encoding);

    /// A byte, counted from 0; the index is not checked.
    virtual unsigned char & operator[](int index) { return bytes()[index]; }
    virtual unsigned char operator[](int index) const { return bytes()[index]; }

    /// Bytes of the tag: 2.
    virtual unsigned short size() const { return serializedSize(); }

    /// The tag as text.
    ///
    /// \throws Exceptions::InvalidFormat for a form that is neither dotted
    ///         bytes nor hexadecimal.
    virtual Templates::wstring toString(StringRepresentationEncodingType encoding) const;

    /// Whether the tag means the same in every file, as far as its first byte
    /// tells: 1 to 127. The others are given out by a file's primer.
    bool isStaticLocalTag() const noexcept { return bytes()[0] >= 1 && bytes()[0] <= 127; }
};

extern template class Concrete<LocalTag, FixedSizeType<SimpleDataType, 2>>;

}}
