#include "Types/UID.h"

#include "KLV/IdentifierText.h"
#include "Types/UMID32.h"
#include "Types/UMID64.h"
#include "Types/UUID.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Types {

namespace {

using Encoding = StringRepresentationEncodingType;

template <class Self>
extern KLV::IdentifierText const TEXT;

template <>
constexpr KLV::IdentifierText TEXT<UniversalLabel> = {"UniversalLabel", Encoding::OID, &KLV::LABEL_OID_PREFIX};
template <>
constexpr KLV::IdentifierText TEXT<UUID> = {"UUID", Encoding::RFC4122, nullptr};
template <>
constexpr KLV::IdentifierText TEXT<UMID32> = {"UMID32", Encoding::HEXADECIMAL, nullptr};
template <>
constexpr KLV::IdentifierText TEXT<UMID64> = {"UMID64", Encoding::HEXADECIMAL, nullptr};

}

UID::~UID() = default;

template <class Self, unsigned short N>
FixedSizeUID<Self, N>::FixedSizeUID(unsigned short const * text, StringRepresentationEncodingType encoding)
{
    KLV::loadFromString(text, encoding, TEXT<Self>, this->bytes(), N);
}

template <class Self, unsigned short N>
Templates::wstring FixedSizeUID<Self, N>::toString(StringRepresentationEncodingType encoding) const
{
    return KLV::toString(this->bytes(), N, encoding, TEXT<Self>);
}

template class FixedSizeUID<UniversalLabel, 16>;
template class Concrete<UniversalLabel, FixedSizeUID<UniversalLabel, 16>>;
template class FixedSizeUID<UUID, 16>;
template class Concrete<UUID, FixedSizeUID<UUID, 16>>;
template class FixedSizeUID<UMID32, 32>;
template class Concrete<UMID32, FixedSizeUID<UMID32, 32>>;
template class FixedSizeUID<UMID64, 64>;
template class Concrete<UMID64, FixedSizeUID<UMID64, 64>>;

}}
