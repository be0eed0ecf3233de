#pragma once

#include "KLV/Key.h"
#include "KLV/Value.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace KLV {

/// One key-length-value triplet of a source.
///
/// The source is lent and outlives the packet. The end of a packet leaves the
/// source behind its value, read or not, so that a walk stays aligned.
class VANTRY_EXPORT Packet
{
public:
    VANTRY_CLASS_ALLOCATION

    /// The source stands at the first byte of the value.
    ///
    /// \param key                the key
    /// \param berLength          bytes of the length field, 1 to 9
    /// \param length             bytes of the value
    /// \param source             where the value comes from
    /// \param keyAbsoluteOffset  position of the first byte of the key
    Packet(Key const & key, unsigned char berLength, UInt64 length, DataIO::DataSource & source,
           UInt64 keyAbsoluteOffset);
    Packet(Packet const &) = delete;
    Packet & operator=(Packet const &) = delete;

    /// Ends the value, which moves the source behind it.
    ~Packet();

    Key const & key() const noexcept { return key_; }
    void key(Key const & key) noexcept { key_ = key; }

    /// Bytes of the length field.
    unsigned char berLength() const noexcept { return berLength_; }

    /// Bytes of the value, as the packet claims.
    UInt64 length() const noexcept { return length_; }

    /// Bytes of key, length field and value together. Where a claimed length
    /// makes that exceed 64 bits, it is 2^64 - 1.
    UInt64 klvLength() const noexcept;

    /// Position of the first byte of the key.
    UInt64 keyAbsoluteOffset() const noexcept { return keyAbsoluteOffset_; }

    Value & value() noexcept { return value_; }
    Value const & value() const noexcept { return value_; }

private:
    Key key_;
    unsigned char berLength_;
    UInt64 length_;
    UInt64 keyAbsoluteOffset_;
    Value value_;
};

}}
