#pragma once

namespace Vantry { namespace Types {

/// How a key, label or identifier is written as text. Not every class has
/// every form.
enum class StringRepresentationEncodingType : int
{
    /// "06.0e.2b.34": two lower-case hexadecimal digits a byte. Every class.
    DOTTED_BYTES = 0,
    /// "0x060e2b34". LocalTag, UMID32 and UMID64.
    HEXADECIMAL = 1,
    /// "1.3.53.4.1": an object identifier. KLV::Key and UniversalLabel.
    OID = 2,
    /// "12345678-1234-1234-1234-123456789abc" (RFC 4122). UUID.
    RFC4122 = 3,
    /// The one of the last three forms that is the class's own. Every class.
    NATIVE = 4
};

}}
