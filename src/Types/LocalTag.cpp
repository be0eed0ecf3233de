#include "Types/LocalTag.h"

#include "KLV/IdentifierText.h"

namespace Vantry { namespace Types {

namespace {

KLV::IdentifierText const TEXT = {"LocalTag", StringRepresentationEncodingType::HEXADECIMAL, nullptr};

}

LocalTag::LocalTag(unsigned short const * text, StringRepresentationEncodingType encoding)
{
    KLV::loadFromString(text, encoding, TEXT, bytes(), 2);
}

Templates::wstring LocalTag::toString(StringRepresentationEncodingType encoding) const
{
    return KLV::toString(bytes(), 2, encoding, TEXT);
}

template class Concrete<LocalTag, FixedSizeType<SimpleDataType, 2>>;

}}
