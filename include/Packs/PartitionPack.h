#pragma once

#include "KLV/Key.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/auto_ptr.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UInt64.h"
#include "Types/UniversalLabel.h"

namespace Vantry {
namespace DataIO {
class DataSink;
}
namespace KLV {
class Packet;
}
namespace Types {
class Batch;
}

namespace Packs {

/// The partition pack, which opens each partition of a file (SMPTE 377M,
/// section 7).
///
///     key; byte 13 is the kind of the partition, byte 14 its status
///     length field
///      0  2  major version          40  8  index byte count
///      2  2  minor version          48  4  index SID
///      4  4  KAG size               52  8  body offset
///      8  8  this partition         60  4  body SID
///     16  8  previous partition     64 16  operational pattern
///     24  8  footer partition       80     essence containers, a batch
///     32  8  header byte count             of labels
///
/// All numbers are big-endian. Partitions are placed from the first byte of
/// the header partition, so that a run-in does not count. No value is checked
/// but the key. One thread at a time.
class VANTRY_EXPORT PartitionPack
{
public:
    VANTRY_CLASS_ALLOCATION

    enum PartitionKind : int
    {
        HEADER_PARTITION = 2,
        BODY_PARTITION = 3,
        FOOTER_PARTITION = 4
    };

    enum PartitionStatus : int
    {
        OPEN_INCOMPLETE = 1,
        CLOSED_INCOMPLETE = 2,
        OPEN_COMPLETE = 3,
        CLOSED_COMPLETE = 4,

        /// A partition of a generic stream (SMPTE 410), a body partition.
        GENERIC_STREAM = 17
    };

    /// Reads the packet's value; bytes behind the last field are left to the
    /// packet.
    ///
    /// \throws Exceptions::InvalidKey, Exceptions::InvalidPartitionKind,
    ///         Exceptions::InvalidPartitionStatus for a key that is none of a
    ///         partition pack.
    /// \throws Exceptions::InvalidLength when the value ends too early.
    explicit PartitionPack(KLV::Packet & packet);

    /// A pack of version 1.2 whose length field has 4 bytes; what is not
    /// given is 0.
    ///
    /// \throws Exceptions as the other constructor for the key.
    PartitionPack(KLV::Key const & key, unsigned int const & kagSize, UInt64 const & thisPartition,
                  UInt64 const & bodyOffset, Types::UniversalLabel const & operationalPattern,
                  Templates::auto_ptr<Types::Batch> essenceContainers);

    /// Copies the essence containers too.
    PartitionPack(PartitionPack const & other);
    ~PartitionPack();

    /// Takes all values of the other. The pack is a handle, so this is const
    /// and returns a copy.
    PartitionPack operator=(PartitionPack const & other) const;

    /// Bytes of the length field: as read, or as to be written, 1 to 9. A
    /// pack that is written over an old one must keep it.
    unsigned char berLength() const { return record_->berLength; }
    void berLength(unsigned char berLength) { record_->berLength = berLength; }

    unsigned short majorVersion() const { return record_->majorVersion.value(); }
    void majorVersion(unsigned short majorVersion) { record_->majorVersion = majorVersion; }

    unsigned short minorVersion() const { return record_->minorVersion.value(); }
    void minorVersion(unsigned short minorVersion) { record_->minorVersion = minorVersion; }

    /// Bytes between the lines of the grid that the partition keeps to.
    unsigned int kagSize() const { return record_->kagSize.value(); }
    void kagSize(unsigned int kagSize) { record_->kagSize = kagSize; }

    /// Place of this partition.
    UInt64 thisPartition() const { return record_->thisPartition.value(); }
    void thisPartition(UInt64 thisPartition) { record_->thisPartition = thisPartition; }

    /// Place of the partition before; 0 in the header partition.
    UInt64 previousPartition() const { return record_->previousPartition.value(); }
    void previousPartition(UInt64 previousPartition) { record_->previousPartition = previousPartition; }

    /// Place of the footer partition; 0 when there is none or it isn't known.
    UInt64 footerPartition() const { return record_->footerPartition.value(); }
    void footerPartition(UInt64 footerPartition) { record_->footerPartition = footerPartition; }

    /// Bytes of the header metadata, with the fill behind it.
    UInt64 headerByteCount() const { return record_->headerByteCount.value(); }
    void headerByteCount(UInt64 headerByteCount) { record_->headerByteCount = headerByteCount; }

    /// Bytes of the index table segments, with the fill behind them.
    UInt64 indexByteCount() const { return record_->indexByteCount.value(); }
    void indexByteCount(UInt64 indexByteCount) { record_->indexByteCount = indexByteCount; }

    /// The stream of the index; 0 when there is none.
    unsigned int indexSID() const { return record_->indexSID.value(); }
    void indexSID(unsigned int indexSID) { record_->indexSID = indexSID; }

    /// The stream of the essence; 0 when there is none.
    unsigned int bodySID() const { return record_->bodySID.value(); }
    void bodySID(unsigned int bodySID) { record_->bodySID = bodySID; }

    /// Bytes of the stream's essence in the partitions before.
    UInt64 bodyOffset() const { return record_->bodyOffset.value(); }
    void bodyOffset(UInt64 bodyOffset) { record_->bodyOffset = bodyOffset; }

    Types::UniversalLabel const & operationalPattern() const { return record_->operationalPattern; }
    void operationalPattern(Types::UniversalLabel const & operationalPattern)
    {
        record_->operationalPattern = operationalPattern;
    }

    /// Labels of the essence containers, a UniversalLabel each. The batch to
    /// set isn't null.
    Types::Batch const & essenceContainers() const { return *record_->essenceContainers; }
    void essenceContainers(Templates::auto_ptr<Types::Batch> essenceContainers);

    KLV::Key const & key() const { return record_->key; }

    /// \throws Exceptions as the constructors; the old key stays.
    void key(KLV::Key const & key);

    PartitionKind partitionKind() const;

    /// Whether values of the header metadata may still change.
    bool isOpen() const;

    /// Whether the header metadata has all that it must have.
    bool isComplete() const;

    bool isGenericStreamsPartition() const;

    /// Bytes of key, length field and value.
    UInt64 serializedSize() const;

    /// Writes the pack.
    ///
    /// \throws Exceptions::InvalidFormat when the length doesn't fit into
    ///         `berLength()` bytes; nothing is written. A single byte takes
    ///         the low byte of the length, whatever that is.
    /// \throws Exceptions::IOError when the sink fails.
    void serialize(DataIO::DataSink & sink) const;

private:
    UInt64 valueLength() const;

    struct Fields
    {
        explicit Fields(KLV::Packet & packet);
        Fields(KLV::Key const & packKey, Types::UniversalLabel const & pattern);

        KLV::Key key;
        unsigned char berLength;

        // In the order of the wire, in which they are read.
        Types::UInt16 majorVersion;
        Types::UInt16 minorVersion;
        Types::UInt32 kagSize;
        Types::UInt64 thisPartition;
        Types::UInt64 previousPartition;
        Types::UInt64 footerPartition;
        Types::UInt64 headerByteCount;
        Types::UInt64 indexByteCount;
        Types::UInt32 indexSID;
        Types::UInt64 bodyOffset;
        Types::UInt32 bodySID;
        Types::UniversalLabel operationalPattern;
    };

    struct Record : Fields
    {
        VANTRY_CLASS_ALLOCATION

        explicit Record(KLV::Packet & packet);
        Record(Fields const & fields, Templates::auto_ptr<Types::Batch> containers);
        Record(Record const & other);
        Record & operator=(Record && other) = default;

        Templates::auto_ptr<Types::Batch> essenceContainers;
    };

    Record * record_;
};

/// Whether this is the key of a partition pack, of whatever status.
VANTRY_EXPORT bool isPartitionPack(KLV::Key const & key);

VANTRY_EXPORT KLV::Key buildPartitionPackKey(PartitionPack::PartitionKind kind, PartitionPack::PartitionStatus status);

/// The same, the status made of its two parts.
VANTRY_EXPORT KLV::Key buildPartitionPackKey(PartitionPack::PartitionKind kind, bool open, bool complete);

}
}
