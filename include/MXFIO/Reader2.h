#pragma once

#include "MXFIO/Reader.h"

namespace Vantry { namespace MXFIO {

/// A reader that also finds partitions from the end of the file: by the footer
/// offset of the header partition, by the random index pack, and by a search
/// backward.
class VANTRY_EXPORT Reader2 : public Reader
{
public:
    Reader2(DataIO::RandomAccessDataSource & source, Templates::SharedPtr<MetaMetadata::Dictionary> dictionary,
            UInt64 searchLimit);
    ~Reader2() override;

    /// The last partition of the file, of whatever kind: where the header
    /// partition has the footer, or else where a random index pack that is
    /// loaded has it, or else by a search from the end.
    ///
    /// \throws Exceptions::InvalidFormat when there is no partition at all,
    ///         or none where the random index pack has one that is known not
    ///         to be a footer.
    Partition * lastPartition();

    /// The last partition among so many bytes at the end of the file, null
    /// when none begins there.
    Partition * lastPartition(UInt64 bytesFromEnd);

    /// The footer partition, found in the same ways; null when there is none
    /// or it isn't where the header partition says.
    Partition * footerPartition();

    /// The partition whose pack should be at this place, not counting the
    /// run-in; null when there is none.
    Partition * partitionAtOffset(UInt64 thisPartition);

    /// The header partition if its metadata is final, else the last partition
    /// that has metadata, final or not.
    ///
    /// \throws Exceptions::InvalidFormat "No header partition found", and as
    ///         `lastPartition` and `previousPartition`.
    Partition * backwardFirstPartitionWithFinalMetadata();

    /// Loads the random index pack, or makes one by a walk back from the
    /// footer; false when there are neither. One that is made has positions
    /// of the source, run-in included.
    ///
    /// \throws Exceptions::InvalidFormat as `previousPartition`.
    bool loadRipFromFooter();

protected:
    /// By the entry of the random index pack that is farthest back; null
    /// without one.
    ///
    /// \throws Exceptions::InvalidFormat when the partition there is known
    ///         and no footer.
    Partition * lastPartitionFromRIP();

    /// By the footer offset of the header partition; null when it has none or
    /// one behind the end of the file.
    ///
    /// \throws Exceptions::InvalidFormat when there is no footer, and without
    ///         a header partition.
    Partition * lastPartitionFromHeaderFooterOffset();

    /// By a search in steps back from the end.
    ///
    /// \param footerRequired  give up with null as soon as it is clear that
    ///                        the last partition is no footer
    /// \throws Exceptions::InvalidFormat when there is no partition.
    Partition * searchLastPartition(bool footerRequired);

    /// As `lastPartition` of the same argument.
    Partition * searchLastPartition(UInt64 bytesFromEnd);

private:
    Partition * readAt(UInt64 absoluteOffset);
    Partition * readInStretch();
    Partition * lastFrom(Partition * partition);
    Partition * keepFooter(Partition * last);

    Partition * footer_;
};

}}
