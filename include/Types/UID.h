#pragma once

#include "Platform/Export.h"
#include "Templates/Containers.h"
#include "Types/SimpleDataType.h"
#include "Types/StringRepresentationEncodingType.h"

namespace Vantry { namespace Types {

/// An identifier of fixed length: UniversalLabel, UUID, UMID32 or UMID64. On
/// the wire it is its bytes in order. There is no unset state.
class VANTRY_EXPORT UID : public SimpleDataType
{
public:
    ~UID() override;

    /// A byte, counted from 0; the index is not checked.
    virtual unsigned char & operator[](int index) = 0;
    virtual unsigned char operator[](int index) const = 0;

    /// Bytes of the identifier.
    virtual unsigned short size() const = 0;

    /// The identifier as text.
    ///
    /// \throws Exceptions::InvalidFormat when the class has no such form.
    virtual Templates::wstring toString(StringRepresentationEncodingType encoding) const = 0;

protected:
    UID() = default;
    UID(UID const &) = default;
    UID & operator=(UID const &) = default;
};

}}
