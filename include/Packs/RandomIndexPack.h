#pragma once

#include "KLV/Key.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"

namespace Vantry {
namespace DataIO {
class DataSink;
}
namespace KLV {
class Packet;
}

namespace Packs {

/// The random index pack, which ends a file and lists its partitions (SMPTE
/// 377M, section 11).
///
///     key, length field
///     per partition   4  body SID
///                     8  offset of the partition's key
///     at the end      4  length of the whole pack
///
/// All numbers are big-endian. Each offset has one entry, each SID any
/// number of them. One thread at a time.
class VANTRY_EXPORT RandomIndexPack
{
public:
    VANTRY_CLASS_ALLOCATION

    using SidIndexedMap = Templates::multimap<unsigned int, UInt64>;
    using OffsetIndexedMap = Templates::map<UInt64, unsigned int>;

    /// The key of a random index pack.
    static KLV::Key const & key();

    /// An empty pack whose length field has 4 bytes.
    RandomIndexPack();

    /// Reads the packet's value. Any registry key is taken that differs from
    /// `key()` in the last two bytes alone. Of entries for one offset the
    /// first stays; the length at the end isn't compared with anything.
    ///
    /// \throws Exceptions::InvalidKey for another key.
    /// \throws Exceptions::InvalidLength when the value ends within an entry
    ///         or before the length at the end.
    explicit RandomIndexPack(KLV::Packet & packet);

    /// Adds a partition; an offset that is there already keeps its SID.
    ///
    /// \param bodySID  0 for a partition without essence
    /// \param offset   from the first byte of the header partition
    void add(unsigned int bodySID, UInt64 offset);

    /// The offsets of all partitions with this body SID, ascending.
    ///
    /// \throws Exceptions::NotFound when there is none.
    Templates::vector<UInt64> find(unsigned int const & bodySID) const;

    /// Number of entries.
    unsigned int size() const;

    /// Bytes of the value.
    UInt64 valueLength() const;

    /// Bytes of key, length field and value.
    UInt64 serializedSize() const;

    SidIndexedMap const & sidIndexedMap() const { return offsets_; }
    OffsetIndexedMap const & offsetIndexedMap() const { return bodySIDs_; }

    /// Bytes of the length field: as read, or as to be written, 1 to 9.
    unsigned char berLength() const { return berLength_; }
    void berLength(unsigned char berLength) { berLength_ = berLength; }

    /// Writes the pack, its entries by ascending offset.
    ///
    /// \throws Exceptions::InvalidElementLength when the pack is longer than
    ///         its last field can tell.
    /// \throws Exceptions::InvalidFormat when the length doesn't fit into
    ///         `berLength()` bytes. Nothing is written in both cases.
    /// \throws Exceptions::IOError when the sink fails.
    void serialize(DataIO::DataSink & sink) const;

private:
    SidIndexedMap offsets_;
    OffsetIndexedMap bodySIDs_;
    unsigned char berLength_;
};

/// Whether all bytes are those of RandomIndexPack::key().
VANTRY_EXPORT bool isRandomIndexPack(KLV::Key const & key);

}
}
