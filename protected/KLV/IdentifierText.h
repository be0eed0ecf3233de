#pragma once

#include "KLV/TextForms.h"
#include "Templates/Containers.h"
#include "Types/StringRepresentationEncodingType.h"

#include <cstddef>

namespace Vantry { namespace KLV {

/// How a class of identifiers is written: as dotted bytes, like all of them,
/// and in a form of its own.
struct IdentifierText
{
    /// The class as messages name it.
    char const * className;

    /// HEXADECIMAL, OID or RFC4122.
    Types::StringRepresentationEncodingType native;

    /// For OID.
    OIDPrefix const * prefix;
};

/// Fills `size` bytes from text.
///
/// \throws Exceptions::InvalidFormat when the class has no such form.
/// \throws Exceptions::InvalidLength, Exceptions::InvalidLabel as the loader
///         of the form does.
void loadFromString(unsigned short const * text, Types::StringRepresentationEncodingType encoding,
                    IdentifierText const & form, unsigned char * bytes, std::size_t size);

/// \throws Exceptions::InvalidFormat when the class has no such form.
Templates::wstring toString(unsigned char const * bytes, std::size_t size,
                            Types::StringRepresentationEncodingType encoding, IdentifierText const & form);

}}
