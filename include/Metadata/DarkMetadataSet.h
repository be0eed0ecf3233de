#pragma once

#include "KLV/Key.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace DataIO {
class DataSink;
class Slice;
}
namespace KLV {
class Packet;
class Value;
}

namespace Metadata {

/// A packet of header metadata that is no local set, kept as bytes.
class VANTRY_EXPORT DarkMetadataSet
{
public:
    VANTRY_CLASS_ALLOCATION

    /// Reads the packet's value.
    ///
    /// \throws Exceptions::InvalidLength when the source ends before; it
    ///         carries the bytes that there were.
    /// \throws Exceptions::BadAlloc.
    explicit DarkMetadataSet(KLV::Packet & packet);

    /// Reads a value for a packet with this key.
    ///
    /// \param berLength  bytes of the length field, 1 to 9
    /// \throws Exceptions::InvalidLength, Exceptions::BadAlloc as above.
    DarkMetadataSet(KLV::Key const & key, unsigned char berLength, KLV::Value & value);
    DarkMetadataSet(DarkMetadataSet const &) = delete;
    DarkMetadataSet & operator=(DarkMetadataSet const &) = delete;
    ~DarkMetadataSet();

    KLV::Key const & key() const noexcept { return key_; }

    /// Bytes of the length field.
    unsigned char berLength() const noexcept { return berLength_; }

    DataIO::Slice const & value() const noexcept { return *value_; }

    /// Replaces the value, which must be one.
    void value(Templates::auto_ptr<DataIO::Slice> value) noexcept;

    /// Bytes of key, length field and value.
    UInt64 serializedSize() const noexcept;

    /// Writes the packet.
    ///
    /// \throws Exceptions::InvalidFormat when the length doesn't fit into
    ///         `berLength()` bytes; nothing is written.
    /// \throws Exceptions::IOError when the sink fails.
    void serialize(DataIO::DataSink & sink) const;

private:
    KLV::Key key_;
    unsigned char berLength_;
    Templates::auto_ptr<DataIO::Slice> value_;
};

}
}
