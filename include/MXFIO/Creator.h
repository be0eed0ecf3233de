#pragma once

#include "MXFIO/PullCreator.h"

namespace Vantry {
namespace DataIO {
class DataSink;
class RandomAccessDataSink;
}

namespace MXFIO {

/// Makes a file in a sink, and goes back in it to write what could not be
/// known ahead.
///
///     while (creator.writeUnit(false) != MXFIO::PullCreator::PullDone)
///         ;
///     creator.finishWork(sink);
///     creator.updatePartitions(sink, true);
///
/// Going back needs a sink with random access. Without, the header partition
/// doesn't know the footer and has the status and metadata of the start.
class VANTRY_EXPORT Creator : public PullCreator
{
public:
    /// A partition in the file.
    struct PackField
    {
        Templates::SharedPtr<Packs::PartitionPack> pack;

        /// Bytes of the pack and the fill item behind it.
        UInt64 packBytes;
    };

    /// By their places from the start of the header partition.
    using PartitionPacks = Templates::map<UInt64, PackField>;

    /// What the sink has had so far is the run-in.
    ///
    /// \param sink  lent
    Creator(Templates::SharedPtr<Metadata::PartitionMetadata> metadata, DataIO::DataSink & sink,
            UInt64 metadataSpareSpace, UInt64 metadataMaximumSpace);
    ~Creator() override;

    /// Writes the next unit and returns what is next; the arguments are those
    /// of `nextUnit`.
    ///
    /// \throws Exceptions::IOError when the sink fails; the unit is lost then.
    Status writeUnit(Packs::PartitionPack::PartitionStatus partitionStatus);
    Status writeUnit(bool closed);

    /// The partitions written so far, as they are in the file.
    PartitionPacks const & partitionPacks() const;

    /// Writes pack and metadata of a partition anew, with the footer's place
    /// and the metadata as they are now. The sink is where the partition
    /// begins, and the partition's index and essence stay.
    ///
    /// \param offset  the partition's place from the start of the header
    ///                partition
    /// \param status  of the metadata, where the partition has any
    /// \return false when the metadata don't fit any more; nothing is written
    ///         then
    /// \throws Exceptions::InvalidValue when there is no such partition.
    bool updatePartition(UInt64 offset, Packs::PartitionPack::PartitionStatus status);

    /// The same with the status that the metadata can have, closed at best if
    /// `closed`.
    bool updatePartition(UInt64 offset, bool closed);

    /// The same for every partition, one by one. The packs then have the
    /// operational pattern that the Preface has now, too.
    ///
    /// \param sink  the sink of the file, which is left somewhere in it
    /// \return false when the metadata of any don't fit any more; that one is
    ///         as it was
    /// \throws Exceptions::InvalidPosition when the sink has no such place.
    /// \throws Exceptions::NotFound when there is no Preface.
    bool updatePartitions(DataIO::RandomAccessDataSink & sink, bool closed);

    /// Writes what sources have left behind to be written once all is known.
    ///
    /// \param sink  the sink of the file, which is left where the last bytes
    ///              were written
    /// \throws Exceptions::InvalidPosition when it has no such place.
    void finishWork(DataIO::RandomAccessDataSink & sink);

private:
    class Impl;
    Impl * impl_;
};

}
}
