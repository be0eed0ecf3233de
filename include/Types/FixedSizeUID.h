#pragma once

#include "Platform/Export.h"
#include "Types/Concrete.h"
#include "Types/FixedSizeType.h"
#include "Types/UID.h"

namespace Vantry { namespace Types {

/// What an identifier of `N` bytes is made of; `Self` is its class:
///
///     class UUID : public Concrete<UUID, FixedSizeUID<UUID, 16>> { ... };
///
/// Identifiers compare byte by byte.
template <class Self, unsigned short N>
class VANTRY_EXPORT FixedSizeUID : public FixedSizeType<UID, N>
{
public:
    unsigned char & operator[](int index) override { return this->bytes()[index]; }
    unsigned char operator[](int index) const override { return this->bytes()[index]; }
    unsigned short size() const override { return N; }
    Templates::wstring toString(StringRepresentationEncodingType encoding) const override;

protected:
    using FixedSizeType<UID, N>::FixedSizeType;

    FixedSizeUID(unsigned short const * text, StringRepresentationEncodingType encoding);
};

}}
