#pragma once

#include "MXFIO/AbstractPartition.h"
#include "Platform/Integers.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace KLV {
class Packet;
}

namespace MXFIO {

class PartitionListener;
class Reader;

/// A partition of a file that is read: its header metadata, its index table
/// segments and the packets of its body.
///
///     partition pack        at partitionAbsoluteOffset()
///     fill item, perhaps
///     header metadata       at metadataAbsoluteOffset()
///     index table segments  at indexTableAbsoluteOffset()
///     body                  at bodyAbsoluteOffset(), up to the next
///                           partition pack
///
/// Positions are those of the source: a run-in counts. All partitions of a
/// file read from the one source of their reader and move it; a partition
/// goes on where it must, so that calls to several may take turns, but what a
/// packet has of its value is to be read before the next call.
///
/// The reader makes its partitions and owns them. One thread at a time for
/// the reader and all of them.
class VANTRY_EXPORT Partition : public AbstractPartition
{
public:
    /// \param reader                   lent; it outlives the partition
    /// \param partitionPack            taken over
    /// \param partitionAbsoluteOffset  where the key of the pack is
    /// \param metadataAbsoluteOffset   where what follows pack and fill is
    /// \param searchLimit              bytes that may lie ahead of a key in
    ///                                 metadata and index
    Partition(Reader & reader, Templates::auto_ptr<Packs::PartitionPack> partitionPack, UInt64 partitionAbsoluteOffset,
              UInt64 metadataAbsoluteOffset, UInt64 searchLimit);
    Partition(Partition const &) = delete;
    Partition & operator=(Partition const &) = delete;
    ~Partition() override;

    /// Where the key of the partition pack is.
    UInt64 partitionAbsoluteOffset() const;

    /// Behind the partition pack and the fill item that may follow it.
    UInt64 metadataAbsoluteOffset() const;

    /// Behind the header metadata, by what the pack says of its size. From
    /// here on, positions above 64 bits are 2^64 - 1.
    UInt64 indexTableAbsoluteOffset() const;

    /// Behind the index table segments, by what the pack says of their size.
    UInt64 bodyAbsoluteOffset() const;

    Packs::PartitionPack const & partitionPack() const override;

    /// Whether `nextBodyKLV` has met the end of the body.
    bool partitionEnded() const override;

    /// Reads the header metadata on the first call and keeps it. Sets that
    /// can't be loaded are left out. What is loaded ahead of a failure is kept
    /// as well: the next call returns it.
    ///
    /// \return empty when the pack says that there is none; nothing moves then
    /// \throws Exceptions::InvalidFormat when it doesn't begin with a primer
    ///         pack, or the source ends within it.
    /// \throws Exceptions::KeyNotFound when too many bytes lie between two
    ///         packets.
    /// \throws Exceptions::InvalidLength for a primer pack that is cut off.
    Templates::SharedPtr<Metadata::PartitionMetadata> metadata() override;

    /// Goes back to the index table segments.
    void rewind();

    /// The next index table segment; its value is yet to be read. Fill items
    /// are passed over.
    ///
    /// The position of the source says which segment is next. Outside the
    /// index it is the first.
    ///
    /// \return null behind the last, and when the partition has no index
    /// \throws Exceptions::NotEnoughData, Exceptions::KeyNotFound,
    ///         Exceptions::InvalidFormat as KLV::Reader.
    Templates::auto_ptr<KLV::Packet> nextIndexTableSegmentsKLV();

    /// The next packet of the body, fill items too; its value is yet to be
    /// read.
    ///
    /// The position of the source says which packet is next. Ahead of the
    /// body it is the first.
    ///
    /// \param searchLimit  bytes that may lie ahead of a key
    /// \return null at the next partition pack, at the end of the source, and
    ///         when the partition has no body
    /// \throws Exceptions::NotEnoughData, Exceptions::KeyNotFound,
    ///         Exceptions::InvalidFormat as KLV::Reader.
    Templates::auto_ptr<KLV::Packet> nextBodyKLV(UInt64 searchLimit);

    /// Goes to a place in the body.
    ///
    /// \param position  bytes from the start of the essence container, whose
    ///                  first ones may be in partitions ahead of this
    /// \throws Exceptions::InvalidPosition when they are.
    void gotoBodyRelativePosition(UInt64 position);

    /// Has a listener hear how `metadata` loads; empty for none.
    void setPartitionListener(Templates::SharedPtr<PartitionListener> listener);

private:
    class Impl;
    Impl * impl_;
};

}
}
