#include "MXFIO/PartitionWriter.h"

#include "MXFIO/GenericStreamPartitionWriter.h"
#include "MXFIO/IndexTableGenerator.h"
#include "support/Failure.h"
#include "support/MemorySources.h"

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;
using Packs::PartitionPack;
using Templates::auto_ptr;

TEST(PartitionWriter, MakesRoomForMetadata)
{
    EssenceMetadata header;
    UInt64 const size = header.metadata->serializedSize(true, true);

    UInt64 const toLine = 512 - size % 512;
    std::tuple<UInt64, UInt64, unsigned int, UInt64> const CASES[] = {
        {0, 0, 1, 0},
        {1000, 0, 1, 1000},
        {1000, size + 100, 1, 100},
        {1000, size + 2000, 1, 1000},
        {1000, size, 1, 0},
        {1000, 1, 1, 0},
        {1000, size + 19, 1, 0},
        {20, 0, 1, 20},
        {0, 0, 512, toLine >= 20 ? toLine : toLine + 512},
    };
    for (auto const & [spare, maximum, kagSize, extra] : CASES)
    {
        BasePartitionWriter writer;
        writer.metadataSpareSpace(spare);
        writer.metadataMaximumSpace(maximum);
        writer.kagSize(kagSize);
        EXPECT_EQ(writer.headerByteCount(*header.metadata) - size, extra) << spare << " " << maximum;

        DataIO::Chain chain;
        auto const written = writer.writeHeader(*header.metadata, CLOSED, 0, true, true, false, 0, chain);
        EXPECT_EQ(chain.data_size(), written.second + size + extra);
        EXPECT_EQ(written.first->headerByteCount(), size + extra);
        EXPECT_EQ(written.first->indexSID(), 0u);
    }
}

TEST(PartitionWriter, GivesASourceUpThatNeverEnds)
{
    EssenceMetadata header;
    auto const plan = std::make_shared<EssencePlan>();
    plan->emptyAnswers = ~0u - 1;
    PartitionWriter writer(header.source(plan), 1, 2, INDEX_REPEATED, INDEX_NONE, false, INDEX_AUTOMATIC);
    DataIO::Chain chain;
    bool complete = false;
    Templates::SharedPtr<FutureUpdater> updater;
    Templates::Rational<Int64> duration;
    EXPECT_FAILURE(InvalidState, "source_ -> done (): GenericContainer::Source gives no data and does not end.",
                   writer.writeData(chain, complete, updater, duration));

    auto source = header.source(plan);
    source->indexTableGenerator(auto_ptr<IndexTableGenerator>());
    EXPECT_FAILURE(InvalidState,
                   "indexGenerator_ != 0: GenericContainer::Source does not contain a valid IndexTableGenerator.",
                   PartitionWriter(source, 1, 2, INDEX_NONE, INDEX_NONE, false, INDEX_AUTOMATIC));
}

TEST(GenericStreamPartitionWriter, WritesNothingElse)
{
    auto const plan = std::make_shared<EssencePlan>();
    plan->kagSize = 64;
    plan->isStream = true;
    GenericStreamPartitionWriter writer(auto_ptr<GenericStream::Source>(new MemoryStream(plan, 1)), 5);
    Types::UniversalLabel const pattern(essenceKey());
    DataIO::Chain chain;
    auto const write = [&](PartitionPack::PartitionKind kind, bool metadata, bool essence, UInt64 runInSize)
    {
        return writer
            .writePartition(nullptr, kind, PartitionPack::GENERIC_STREAM, 1, 0, 0, pattern,
                            auto_ptr<Types::Batch>(new Types::Batch(16)), metadata, false, essence, false, runInSize,
                            chain)
            .first;
    };
    EXPECT_FAILURE(InvalidValue, "(writeMetadata == false): GenericStreamPartition does not contain metadata.",
                   write(BODY, true, true, 0));
    EXPECT_FAILURE(InvalidValue, "(writeEssence == true): GenericStreamPartition must contain essence.",
                   write(BODY, false, false, 0));
    EXPECT_FAILURE(InvalidValue,
                   "(runInSize == 0): GenericStreamPartition is a body partition and does not support runIn.",
                   write(BODY, false, true, 1));
    EXPECT_FAILURE(InvalidValue,
                   "(partitionKind == PartitionPack::BODY_PARTITION): GenericStreamPartition must be a body "
                   "partition.",
                   write(FOOTER, false, true, 0));
    EXPECT_EQ(chain.data_size(), 0u);

    EXPECT_TRUE(write(BODY, false, true, 0)->isGenericStreamsPartition());
    bool complete = false;
    Templates::SharedPtr<FutureUpdater> updater;
    Templates::Rational<Int64> duration;
    chain.clear();
    while (writer.writeData(chain, complete, updater, duration) == AbstractPartitionWriter::WriterHasData)
        EXPECT_EQ(chain.data_size() % 64, 0u);
    EXPECT_EQ(chain.data_size(), 10 * 128u);
    EXPECT_EQ(write(BODY, false, true, 0)->bodyOffset(), 10 * 128u);
}

}}}
