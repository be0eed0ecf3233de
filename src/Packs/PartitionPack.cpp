#include "Packs/PartitionPack.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidKey.h"
#include "Exceptions/InvalidPartitionKind.h"
#include "Exceptions/InvalidPartitionStatus.h"
#include "KLV/Packet.h"
#include "KLV/PacketHead.h"
#include "Types/Batch.h"

#include <cstring>

namespace Vantry { namespace Packs {

namespace {

unsigned char const DEFAULT_BER_LENGTH = 4;

// Bytes of the value ahead of the essence containers.
UInt64 const FIELDS_SIZE = 80;
UInt64 const BATCH_HEAD_SIZE = 8;

unsigned char const FIXED_BYTES[] = {0x06, 0x0E, 0x2B, 0x34, 0x02, 0x05, 0x01, 0x01, 0x0D, 0x01, 0x02, 0x01, 0x01};
int const KIND_BYTE = 13;
int const STATUS_BYTE = 14;

bool hasFixedBytes(KLV::Key const & key)
{
    return std::memcmp(key.rawBuffer(), FIXED_BYTES, sizeof FIXED_BYTES) == 0;
}

bool hasKind(KLV::Key const & key)
{
    return key[KIND_BYTE] >= PartitionPack::HEADER_PARTITION && key[KIND_BYTE] <= PartitionPack::FOOTER_PARTITION;
}

bool hasStatus(KLV::Key const & key)
{
    unsigned char const status = key[STATUS_BYTE];
    if (status == PartitionPack::GENERIC_STREAM)
        return key[KIND_BYTE] == PartitionPack::BODY_PARTITION;
    return status >= PartitionPack::OPEN_INCOMPLETE && status <= PartitionPack::CLOSED_COMPLETE;
}

KLV::Key const & checked(KLV::Key const & key)
{
    if (!hasFixedBytes(key))
        VANTRY_FAIL(InvalidKey, "The key is not a PartitionPack key");
    if (!hasKind(key))
        VANTRY_FAIL(InvalidPartitionKind, "The key defines an invalid partition kind");
    if (!hasStatus(key))
        VANTRY_FAIL(InvalidPartitionStatus, "The key defines an invalid partition status");
    return key;
}

}

PartitionPack::Fields::Fields(KLV::Packet & packet) :
    key(checked(packet.key())),
    berLength(packet.berLength()),
    majorVersion(packet.value()),
    minorVersion(packet.value()),
    kagSize(packet.value()),
    thisPartition(packet.value()),
    previousPartition(packet.value()),
    footerPartition(packet.value()),
    headerByteCount(packet.value()),
    indexByteCount(packet.value()),
    indexSID(packet.value()),
    bodyOffset(packet.value()),
    bodySID(packet.value()),
    operationalPattern(packet.value())
{
}

PartitionPack::Fields::Fields(KLV::Key const & packKey, Types::UniversalLabel const & pattern) :
    key(checked(packKey)),
    berLength(DEFAULT_BER_LENGTH),
    majorVersion(1),
    minorVersion(2),
    kagSize(0),
    thisPartition(0),
    previousPartition(0),
    footerPartition(0),
    headerByteCount(0),
    indexByteCount(0),
    indexSID(0),
    bodyOffset(0),
    bodySID(0),
    operationalPattern(pattern)
{
}

PartitionPack::Record::Record(KLV::Packet & packet) :
    Fields(packet), essenceContainers(new Types::Batch(packet.value(), Types::Identifiers::UL))
{
}

PartitionPack::Record::Record(Fields const & fields, Templates::auto_ptr<Types::Batch> containers) :
    Fields(fields), essenceContainers(containers)
{
}

PartitionPack::Record::Record(Record const & other) :
    Fields(other), essenceContainers(new Types::Batch(*other.essenceContainers))
{
}

PartitionPack::PartitionPack(KLV::Packet & packet) : record_(new Record(packet)) {}

PartitionPack::PartitionPack(KLV::Key const & key, unsigned int const & kagSize, UInt64 const & thisPartition,
                             UInt64 const & bodyOffset, Types::UniversalLabel const & operationalPattern,
                             Templates::auto_ptr<Types::Batch> essenceContainers) :
    record_(new Record(Fields(key, operationalPattern), essenceContainers))
{
    record_->kagSize = kagSize;
    record_->thisPartition = thisPartition;
    record_->bodyOffset = bodyOffset;
}

PartitionPack::PartitionPack(PartitionPack const & other) : record_(new Record(*other.record_)) {}

PartitionPack::~PartitionPack()
{
    delete record_;
}

PartitionPack PartitionPack::operator=(PartitionPack const & other) const
{
    *record_ = Record(*other.record_);
    return *this;
}

void PartitionPack::essenceContainers(Templates::auto_ptr<Types::Batch> essenceContainers)
{
    record_->essenceContainers = essenceContainers;
}

void PartitionPack::key(KLV::Key const & key)
{
    record_->key = checked(key);
}

PartitionPack::PartitionKind PartitionPack::partitionKind() const
{
    return static_cast<PartitionKind>(record_->key[KIND_BYTE]);
}

bool PartitionPack::isOpen() const
{
    return record_->key[STATUS_BYTE] == OPEN_INCOMPLETE || record_->key[STATUS_BYTE] == OPEN_COMPLETE;
}

bool PartitionPack::isComplete() const
{
    return record_->key[STATUS_BYTE] != OPEN_INCOMPLETE && record_->key[STATUS_BYTE] != CLOSED_INCOMPLETE;
}

bool PartitionPack::isGenericStreamsPartition() const
{
    return record_->key[STATUS_BYTE] == GENERIC_STREAM;
}

UInt64 PartitionPack::serializedSize() const
{
    return record_->key.serializedSize() + record_->berLength + valueLength();
}

void PartitionPack::serialize(DataIO::DataSink & sink) const
{
    Record const & r = *record_;
    Types::BaseType const * const fields[] = {&r.majorVersion,
                                              &r.minorVersion,
                                              &r.kagSize,
                                              &r.thisPartition,
                                              &r.previousPartition,
                                              &r.footerPartition,
                                              &r.headerByteCount,
                                              &r.indexByteCount,
                                              &r.indexSID,
                                              &r.bodyOffset,
                                              &r.bodySID,
                                              &r.operationalPattern,
                                              r.essenceContainers.get()};

    KLV::writePacketHead(sink, r.key, valueLength(), r.berLength);
    for (Types::BaseType const * field : fields)
        field->serialize(sink);
}

// The batch tells its own size in 16 bits only.
UInt64 PartitionPack::valueLength() const
{
    Types::Batch const & containers = essenceContainers();
    return FIELDS_SIZE + BATCH_HEAD_SIZE + UInt64(containers.size()) * containers.elementSize();
}

bool isPartitionPack(KLV::Key const & key)
{
    return hasFixedBytes(key) && hasKind(key);
}

KLV::Key buildPartitionPackKey(PartitionPack::PartitionKind kind, PartitionPack::PartitionStatus status)
{
    unsigned char bytes[16] = {};
    std::memcpy(bytes, FIXED_BYTES, sizeof FIXED_BYTES);
    bytes[KIND_BYTE] = static_cast<unsigned char>(kind);
    bytes[STATUS_BYTE] = static_cast<unsigned char>(status);
    return KLV::Key(bytes);
}

KLV::Key buildPartitionPackKey(PartitionPack::PartitionKind kind, bool open, bool complete)
{
    if (open)
        return buildPartitionPackKey(kind, complete ? PartitionPack::OPEN_COMPLETE : PartitionPack::OPEN_INCOMPLETE);
    return buildPartitionPackKey(kind, complete ? PartitionPack::CLOSED_COMPLETE : PartitionPack::CLOSED_INCOMPLETE);
}

}}
