#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace DataIO {
class RandomAccessDataSource;
}
namespace KLV {
class Reader;
class Value;
}
namespace MetaMetadata {
class Dictionary;
}
namespace Packs {
class RandomIndexPack;
}

namespace MXFIO {

class Partition;

/// Finds the partitions of a file and keeps them.
///
/// Nothing is read until it is asked for. A partition, once read, is never
/// read again: the file is seen as it was at that time. All partitions belong
/// to the reader and go with it.
///
/// A walk forward finds partitions in any file, however damaged it is: what
/// can't be read ends the walk. The bytes of the bodies are passed over, not
/// read. With the random index pack each step is one jump.
///
/// Reader and partitions share one position of the source, which most
/// operations move. One thread at a time.
class VANTRY_EXPORT Reader
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \param source       lent; it outlives the reader
    /// \param dictionary   the schema that header metadata is loaded with
    /// \param searchLimit  bytes that may lie ahead of a key when partitions
    ///                     are looked for, below 2^63. It bounds the run-in:
    ///                     65536 suits files by SMPTE 377M.
    Reader(DataIO::RandomAccessDataSource & source, Templates::SharedPtr<MetaMetadata::Dictionary> dictionary,
           UInt64 searchLimit);
    Reader(Reader const &) = delete;
    Reader & operator=(Reader const &) = delete;
    virtual ~Reader();

    KLV::Reader & klvReader();
    DataIO::RandomAccessDataSource & source();
    Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary() const;

    /// The random index pack; empty until one is loaded.
    Templates::SharedPtr<Packs::RandomIndexPack const> rip() const;

    /// The bytes ahead of the header partition, from their start. The value
    /// belongs to the reader.
    ///
    /// \return null when there are none, and until the header partition was
    ///         read
    KLV::Value * runIn();

    /// How many bytes these are. By so much are positions in the source
    /// larger than those in the packs; 0 until the header partition was read.
    UInt64 runInSize() const;

    /// The first partition of the file, of whatever kind; null when there is
    /// none within the search limit.
    ///
    /// This and all that follow look partitions up or read them. What can't
    /// be read, such as a pack that is cut off, ends a search as the end of
    /// the file does.
    ///
    /// \throws Exceptions::IOError here and below, when the source fails.
    Partition * headerPartition();

    /// The partition behind `current`.
    ///
    /// \return null behind a footer, and when no other follows
    /// \throws Exceptions::InvalidValue when `current` is null.
    /// \throws Exceptions::InvalidFormat when the one found names a later
    ///         predecessor than `current`.
    Partition * nextPartition(Partition * current);

    /// The next partition behind `current` with this body SID, null for none;
    /// failures as above.
    Partition * nextPartition(Partition * current, unsigned int bodySID);

    /// The next partition behind `current` with this index SID.
    Partition * nextIndexPartition(Partition * current, unsigned int indexSID);

    /// The partition that `current` names as the one before it.
    ///
    /// \return null ahead of a header partition, and of null
    /// \throws Exceptions::InvalidFormat when there is none where it should
    ///         be, or it isn't ahead of `current`.
    Partition * previousPartition(Partition * current);

    /// The last partition ahead of `current` with this body SID, null for
    /// none; failures as above.
    Partition * previousPartition(Partition * current, unsigned int bodySID);

    /// The last partition ahead of `current` with this index SID.
    Partition * previousIndexPartition(Partition * current, unsigned int indexSID);

    /// The next partition behind `current` whose header metadata is complete.
    Partition * nextCompletePartition(Partition * current);

    /// The next partition behind `current` whose header metadata is final.
    Partition * nextClosedPartition(Partition * current);

    /// The first closed partition that has header metadata. Where there is
    /// none it is the last open one that has, and then the header partition.
    ///
    /// \throws Exceptions::InvalidFormat "No header partition found", and as
    ///         `nextPartition`.
    Partition * firstPartitionWithFinalMetadata();

    /// The known partition that is farthest back in the file; null while none
    /// is known.
    Partition * lastLoadedPartition();

    /// Looks for the random index pack at the end of the file and takes it in
    /// place of the one before. False when there is none; what was held stays.
    bool loadRIP();

protected:
    /// Takes a pack made elsewhere, unless there is one: then it is deleted,
    /// and false returned.
    bool loadRIP(Templates::auto_ptr<Packs::RandomIndexPack> rip);

    /// The known partition that begins at a position of the source or is the
    /// last to begin ahead of it; null for none.
    Partition * find(UInt64 absoluteOffset);

    /// Moves the source to where the partition behind this one is, or where a
    /// search for it starts.
    void positionSource(Partition * partition);

    /// Searches for a partition pack from where the source is.
    ///
    /// \param limit          bytes that may lie ahead of each key
    /// \param fixedLimit     false to lower it by the length of each packet
    ///                       passed
    /// \param bytesConsumed  set to the number of bytes passed
    /// \param essenceSeen    set when essence was among them
    /// \return null when nothing was found up to the end, the limit, or
    ///         something unreadable
    Partition * readPartition(UInt64 limit, bool fixedLimit, UInt64 & bytesConsumed, bool & essenceSeen);

private:
    friend class Partition;

    // Where header metadata and index of a partition end at the latest: where
    // its pack says, unless another partition is known to begin ahead of that.
    UInt64 endOf(Partition const & partition);

    class Impl;
    Impl * impl_;
};

}
}
