#include "KLV/IdentifierText.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"

namespace Vantry { namespace KLV {

namespace {

using Encoding = Types::StringRepresentationEncodingType;

// The form that is meant, with the class's own in place of NATIVE.
Encoding resolve(Encoding encoding, IdentifierText const & form, char const * purpose)
{
    if (encoding == Encoding::NATIVE)
        return form.native;

    if (encoding != Encoding::DOTTED_BYTES && encoding != form.native)
        VANTRY_FAIL(InvalidFormat, Templates::string("Don't know how to ") + purpose + form.className +
                                       " in the given string representation format");
    return encoding;
}

}

void loadFromString(unsigned short const * text, Encoding encoding, IdentifierText const & form, unsigned char * bytes,
                    std::size_t size)
{
    switch (resolve(encoding, form, "initialize "))
    {
    case Encoding::HEXADECIMAL:
        return loadFromStringHexadecimal(text, bytes, size);
    case Encoding::OID:
        return loadFromStringOID(text, bytes, size, *form.prefix);
    case Encoding::RFC4122:
        return loadFromStringRFC4122(text, bytes);
    default:
        return loadFromStringDottedBytes(text, bytes, size);
    }
}

Templates::wstring toString(unsigned char const * bytes, std::size_t size, Encoding encoding,
                            IdentifierText const & form)
{
    switch (resolve(encoding, form, "represent "))
    {
    case Encoding::HEXADECIMAL:
        return toStringHexadecimal(bytes, size);
    case Encoding::OID:
        return toStringOID(bytes, size, *form.prefix);
    case Encoding::RFC4122:
        return toStringRFC4122(bytes);
    default:
        return toStringDottedBytes(bytes, size);
    }
}

}}
