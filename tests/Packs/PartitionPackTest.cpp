#include "Packs/PartitionPack.h"

#include "Types/Batch.h"
#include "support/BytesPacket.h"
#include "support/BytesSink.h"
#include "support/Failure.h"

namespace Vantry { namespace Packs { namespace {

using Templates::auto_ptr;
using namespace Tests;
using Types::Batch;
using Types::SimpleDataType;
using Types::UniversalLabel;

Bytes const HEADER_KEY = hex("06 0E 2B 34 02 05 01 01 0D 01 02 01 01 02 04 00");
Bytes const PATTERN = hex("06 0E 2B 34 04 01 01 01 0D 01 02 01 01 01 09 00");
Bytes const CONTAINER = hex("06 0E 2B 34 04 01 01 02 0D 01 03 01 02 04 60 01");

Bytes const FIELDS = hex("00 01 00 03"             // version 1.3
                         "00 00 02 00"             // KAG size
                         "00 00 00 01 00 00 00 02" // this partition
                         "00 00 00 03 00 00 00 04" // previous partition
                         "00 00 00 05 00 00 00 06" // footer partition
                         "00 00 00 07 00 00 00 08" // header byte count
                         "00 00 00 09 00 00 00 0A" // index byte count
                         "00 00 00 0B"             // index SID
                         "00 00 00 0C 00 00 00 0D" // body offset
                         "00 00 00 0E")            // body SID
                     + PATTERN;

Bytes const ONE_CONTAINER = hex("00 00 00 01 00 00 00 10") + CONTAINER;

auto_ptr<Batch> containers(unsigned int howMany)
{
    auto_ptr<Batch> batch(new Batch(16));
    for (unsigned int i = 0; i < howMany; ++i)
        batch->append(auto_ptr<SimpleDataType>(new UniversalLabel(CONTAINER.data())));
    return batch;
}

KLV::Key key(unsigned char kind, unsigned char status)
{
    KLV::Key key(HEADER_KEY.data());
    key[13] = kind;
    key[14] = status;
    return key;
}

PartitionPack packWith(KLV::Key const & key, unsigned int containerCount = 0)
{
    return PartitionPack(key, 512, 1000, 2000, UniversalLabel(PATTERN.data()), containers(containerCount));
}

Bytes bytesOf(SimpleDataType const & value)
{
    return Bytes(value.rawBuffer(), value.rawBuffer() + value.serializedSize());
}

TEST(PartitionPack, IsReadAndWrittenFieldByField)
{
    for (Bytes const & length : {hex("68"), hex("83 00 00 68"), hex("88 00 00 00 00 00 00 00 68")})
    {
        Bytes const stream = HEADER_KEY + length + FIELDS + ONE_CONTAINER;
        BytesPacket packet(stream);
        PartitionPack const pack(*packet);
        EXPECT_EQ(pack.berLength(), length.size());
        EXPECT_EQ(pack.majorVersion(), 1);
        EXPECT_EQ(pack.minorVersion(), 3);
        EXPECT_EQ(pack.kagSize(), 512u);
        EXPECT_EQ(pack.thisPartition(), 0x100000002u);
        EXPECT_EQ(pack.previousPartition(), 0x300000004u);
        EXPECT_EQ(pack.footerPartition(), 0x500000006u);
        EXPECT_EQ(pack.headerByteCount(), 0x700000008u);
        EXPECT_EQ(pack.indexByteCount(), 0x90000000Au);
        EXPECT_EQ(pack.indexSID(), 11u);
        EXPECT_EQ(pack.bodyOffset(), 0xC0000000Du);
        EXPECT_EQ(pack.bodySID(), 14u);
        EXPECT_EQ(bytesOf(pack.operationalPattern()), PATTERN);
        ASSERT_EQ(pack.essenceContainers().size(), 1u);
        EXPECT_EQ(bytesOf(pack.essenceContainers().at(0)), CONTAINER);

        EXPECT_EQ(serialized(pack), stream);
        EXPECT_EQ(pack.serializedSize(), stream.size());
    }
}

TEST(PartitionPack, ItsKeyTellsKindAndStatus)
{
    std::tuple<PartitionPack::PartitionKind, PartitionPack::PartitionStatus, bool, bool, bool> const cases[] = {
        {PartitionPack::HEADER_PARTITION, PartitionPack::OPEN_INCOMPLETE, true, false, false},
        {PartitionPack::BODY_PARTITION, PartitionPack::CLOSED_INCOMPLETE, false, false, false},
        {PartitionPack::HEADER_PARTITION, PartitionPack::OPEN_COMPLETE, true, true, false},
        {PartitionPack::FOOTER_PARTITION, PartitionPack::CLOSED_COMPLETE, false, true, false},
        {PartitionPack::BODY_PARTITION, PartitionPack::GENERIC_STREAM, false, true, true},
    };
    for (auto const & [kind, status, open, complete, genericStream] : cases)
    {
        KLV::Key const built = buildPartitionPackKey(kind, status);
        EXPECT_EQ(built, key(static_cast<unsigned char>(kind), static_cast<unsigned char>(status)));
        EXPECT_TRUE(isPartitionPack(built));
        if (!genericStream)
        {
            EXPECT_EQ(built, buildPartitionPackKey(kind, open, complete));
        }

        PartitionPack const pack = packWith(built);
        EXPECT_EQ(pack.partitionKind(), kind);
        EXPECT_EQ(pack.isOpen(), open);
        EXPECT_EQ(pack.isComplete(), complete);
        EXPECT_EQ(pack.isGenericStreamsPartition(), genericStream);
    }
}

TEST(PartitionPack, RefusesKeysWithoutAChange)
{
    char const * const badKind = "The key defines an invalid partition kind";
    char const * const badStatus = "The key defines an invalid partition status";
    PartitionPack pack = packWith(key(4, 4));
    EXPECT_FAILURE(InvalidPartitionKind, badKind, pack.key(key(5, 0)));
    EXPECT_FAILURE(InvalidPartitionStatus, badStatus, pack.key(key(2, 0)));
    KLV::Key other = key(5, 0);
    other[12] = 2;
    BytesPacket packet(Bytes(other.rawBuffer(), other.rawBuffer() + 16) + hex("00"));
    EXPECT_FAILURE(InvalidKey, "The key is not a PartitionPack key", PartitionPack(*packet));
    EXPECT_EQ(pack.key(), key(4, 4));
}

TEST(PartitionPack, IsAsLongAsItsLengthFieldCanTell)
{
    PartitionPack pack = packWith(key(2, 2), 5000); // more than a batch can measure
    EXPECT_EQ(serialized(pack).size(), 20u + 80 + 8 + 5000 * 16);
    EXPECT_EQ(pack.serializedSize(), serialized(pack).size());
    pack.berLength(3);
    EXPECT_FAILURE(InvalidFormat, "BER size not big enough to hold value length", serialized(pack));

    // One byte takes what it can, without a word.
    pack.essenceContainers(containers(7));
    pack.berLength(1);
    EXPECT_EQ(serialized(pack)[16], 200);
}

TEST(PartitionPack, PassesOverBytesBehindItsFieldsAndMissesNone)
{
    Bytes const head = HEADER_KEY + hex("68");
    BytesPacket longer(HEADER_KEY + hex("69") + FIELDS + ONE_CONTAINER + hex("FF"));
    EXPECT_EQ(serialized(PartitionPack(*longer)), head + FIELDS + ONE_CONTAINER);

    BytesPacket cut(head + FIELDS.first(79));
    EXPECT_FAILURE(InvalidLength, "Invalid data size in Value", PartitionPack(*cut));
    BytesPacket hostile(head + FIELDS + hex("FF FF FF FF 00 00 00 10"));
    EXPECT_FAILURE(InvalidLength,
                   "Invalid data size in collection. Not enough data to read 4294967295 elements of size 16",
                   PartitionPack(*hostile));
}

}}}
