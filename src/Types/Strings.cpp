#include "ByteCoders/Text.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidLength.h"
#include "KLV/Value.h"
#include "Platform/WideTraits.h"
#include "Types/ISO7String.h"
#include "Types/UTF16String.h"

#include <algorithm>
#include <cstring>

namespace Vantry { namespace Types {

namespace {

KLV::Value & evenSized(KLV::Value & source)
{
    VANTRY_CHECK(source.remaining () % sizeof (Platform::UInt16) == 0, InvalidLength,
                 "UTF-16 data must have a even number of bytes.");
    return source;
}

Templates::vector<unsigned char> encoded(unsigned short const * text)
{
    std::size_t const unitsWithEnd = Platform::WideTraits::length(text) + 1;
    Templates::vector<unsigned char> bytes(unitsWithEnd * sizeof(Platform::UInt16));
    ByteCoders::encodeBigEndian(text, unitsWithEnd, bytes.data());
    return bytes;
}

Templates::wstring decoded(Templates::vector<unsigned char> const & bytes)
{
    Templates::wstring text(bytes.size() / sizeof(Platform::UInt16), 0);
    ByteCoders::decodeBigEndian(bytes.data(), bytes.size(), &text[0]);
    text.erase(std::min(text.find(static_cast<unsigned short>(0)), text.size()));
    return text;
}

}

ISO7String::ISO7String(KLV::Value & source) : Concrete(within32Bits(source)), native_(bytes().begin(), bytes().end())
{
    if (!native_.empty() && native_.back() != 0)
        native_.push_back(0);
}

ISO7String::ISO7String(char const * text) :
    Concrete(reinterpret_cast<unsigned char const *>(text), std::strlen(text) + 1), native_(text)
{
}

unsigned short ISO7String::size() const noexcept
{
    return static_cast<unsigned short>(native_.size());
}

unsigned short ISO7String::stringLength() const noexcept
{
    // The position of nothing, all bits set, is FFFFh here.
    return static_cast<unsigned short>(native_.find('\0'));
}

UTF16String::UTF16String(KLV::Value & source) : Concrete(evenSized(source)), native_(decoded(bytes())) {}

UTF16String::UTF16String(unsigned short const * text) : Concrete(encoded(text)), native_(text) {}

unsigned short UTF16String::size() const noexcept
{
    return static_cast<unsigned short>(native_.size());
}

template class Concrete<ISO7String, VariableSizeType>;
template class Concrete<UTF16String, VariableSizeType>;

}}
