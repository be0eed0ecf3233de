#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/Containers.h"
#include "Types/StringRepresentationEncodingType.h"

#include <iosfwd>

/// Key-length-value coding as SMPTE 336M defines it and MXF (SMPTE 377M) uses
/// it.
namespace Vantry { namespace KLV {

class Value;

/// The 16 bytes that say what a packet is.
///
/// Bytes 0 to 3 of a SMPTE key are 06 0E 2B 34, byte 4 is its category, byte 5
/// the registry designator, byte 7 the registry version.
class VANTRY_EXPORT Key
{
public:
    VANTRY_CLASS_ALLOCATION

    /// Copies 16 bytes.
    constexpr explicit Key(unsigned char const * bytes) noexcept :
        bytes_{bytes[0], bytes[1], bytes[2],  bytes[3],  bytes[4],  bytes[5],  bytes[6],  bytes[7],
               bytes[8], bytes[9], bytes[10], bytes[11], bytes[12], bytes[13], bytes[14], bytes[15]}
    {
    }

    /// Reads 16 bytes.
    ///
    /// \throws Exceptions::InvalidLength when the value has fewer left.
    explicit Key(Value & value);

    /// Reads text: dotted bytes or OID, which is the native form.
    ///
    /// \throws Exceptions::InvalidFormat for another form.
    /// \throws Exceptions::InvalidLength, Exceptions::InvalidLabel when the
    ///         text doesn't follow its form.
    Key(unsigned short const * text, Types::StringRepresentationEncodingType encoding);

    unsigned char const * rawBuffer() const noexcept { return bytes_; }

    /// A byte, counted from 0; the index is not checked.
    unsigned char operator[](int index) const noexcept { return bytes_[index]; }
    unsigned char & operator[](int index) noexcept { return bytes_[index]; }

    unsigned short size() const noexcept { return SIZE; }
    unsigned short serializedSize() const noexcept { return SIZE; }

    /// The key as text. An OID starts with the same numbers whatever bytes 0
    /// to 4 are.
    ///
    /// \throws Exceptions::InvalidFormat for a form that is neither dotted
    ///         bytes nor OID.
    Templates::wstring toString(Types::StringRepresentationEncodingType encoding) const;

    /// Bytes of the length of each element in a local set with this key: 1, 2
    /// or 4; 0 for BER, and for a key of something else.
    unsigned char lengthFieldLength() const noexcept;

    /// Bytes of the tag of each element in a local set with this key: 1, 2 or
    /// 4; 0 for a key of something else.
    unsigned char localTagFieldLength() const noexcept;

private:
    static constexpr unsigned short SIZE = 16;

    unsigned char bytes_[SIZE];
};

VANTRY_EXPORT bool operator==(Key const & left, Key const & right) noexcept;
VANTRY_EXPORT bool operator!=(Key const & left, Key const & right) noexcept;

/// Order by the first byte that differs.
VANTRY_EXPORT bool operator<(Key const & left, Key const & right) noexcept;

/// Writes the dotted bytes.
VANTRY_EXPORT std::ostream & operator<<(std::ostream & out, Key const & key);

}}
