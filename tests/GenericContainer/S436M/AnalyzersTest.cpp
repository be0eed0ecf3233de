#include "GenericContainer/Multiplexer/Mux.h"
#include "GenericContainer/S436M/ANCPacketsAnalyzer.h"
#include "GenericContainer/S436M/VBIDataAnalyzer.h"
#include "Metadata/Structural/ANCPacketsDescriptor.h"
#include "support/AnalyzedEssence.h"
#include "support/Failure.h"

namespace Vantry { namespace Tests {

using namespace GenericContainer::S436M;
using Rate = Templates::Rational<int>;

// A line whose payload is told by the array count, and one by the samples.
Bytes const BY_ARRAY = hex("0009 02 04 0005 00000008 00000001") + counting(8);
Bytes const BY_SAMPLES = hex("000B 02 05 0005 00000006 00000002") + counting(10);

// Keeps what it is shown.
class ShownPackets : public ANCPacketsAnalyzer
{
public:
    using ANCPacketsAnalyzer::ANCPacketsAnalyzer;
    void processPayload(DataIO::Slice const & payload) override { shown += bytesOf(payload); }

    Bytes shown;
};

Bytes labelBytes(S436MBaseAnalyzer & analyzer)
{
    Types::UniversalLabel const label = analyzer.universalLabel();
    return Bytes(label.rawBuffer(), label.rawBuffer() + 16);
}

TEST(S436MAnalyzers, GiveEachElementAsItIs)
{
    std::vector<Bytes> const elements = {hex("0002") + BY_ARRAY + BY_SAMPLES, hex("0000"), hex("0001") + BY_SAMPLES};
    Bytes const stream = elements[0] + elements[1] + elements[2];
    std::mt19937 random(5);
    CountingBlocks blocks;
    for (Bytes const & end : {Bytes(), hex("00")})
        for (UInt64 longest : {1, 5, 500})
        {
            ShownPackets analyzer(pieceSource(blocks, cutAtRandom(stream + end, longest, random)));
            analyzer.editRate(25);
            std::vector<Unit> const units = unitsOf(analyzer);
            ASSERT_EQ(units.size(), elements.size());
            for (std::size_t i = 0; i < units.size(); ++i)
            {
                EXPECT_EQ(units[i].data, elements[i]);
                EXPECT_EQ(units[i].duration, Rate(1, 25));
            }
            EXPECT_EQ(analyzer.shown, counting(8) + counting(10) + counting(10));
            EXPECT_TRUE(analyzer.done());
        }
}

TEST(S436MAnalyzers, RefuseElementsThatAreCutOff)
{
    Bytes const element = hex("0001") + BY_ARRAY;
    CountingBlocks blocks;
    for (std::size_t size = 2; size < element.size(); ++size)
    {
        VBIDataAnalyzer analyzer(pieceSource(blocks, {element.first(size)}));
        analyzer.editRate(25);
        EXPECT_FAILURE(InvalidFormat, "Input stream is not according to format.", unitsOf(analyzer));
    }

    Bytes const huge = hex("0001 0009 02 04 FFFF FFFFFFFC FFFFFFFF 00");
    VBIDataAnalyzer analyzer(pieceSource(blocks, {huge}));
    analyzer.editRate(25);
    EXPECT_FAILURE(InvalidFormat, "Input stream is not according to format.", unitsOf(analyzer));
}

TEST(S436MAnalyzers, DescribeTheData)
{
    CountingBlocks blocks;
    ANCPacketsAnalyzer packets(pieceSource(blocks, {hex("0000 0000 0000")}));
    VBIDataAnalyzer lines(pieceSource(blocks, {}));
    EXPECT_EQ(packets.essenceElementType(), 2);
    EXPECT_EQ(lines.essenceElementType(), 1);
    EXPECT_EQ(lines.itemTypeIdentifier(), 0x17);
    EXPECT_EQ(labelBytes(packets), hex("060E2B34 04010109 0D010301 020E0000"));
    EXPECT_EQ(labelBytes(lines), hex("060E2B34 04010107 0D010301 020D0000"));
    EXPECT_EQ(packets.getDuration(), Rate(-1));
    packets.setDuration(4);
    packets.setPreChargeDuration(Rate(1, 5));
    EXPECT_EQ(packets.getDuration(), Rate(4));
    EXPECT_EQ(packets.getPreChargeDuration(), Rate(1, 5));

    packets.editRate(Rate(30000, 1001));
    EXPECT_FALSE(packets.finalize());
    DescribedEssence essence;
    ASSERT_TRUE(essence.describe(packets));
    EXPECT_FALSE(essence.describe(packets));
    unitsOf(packets);
    EXPECT_TRUE(packets.finalize());
    EXPECT_TRUE(packets.finalize());
    EXPECT_EQ(essence.duration(), 3);
    auto const & descriptor = essence.descriptor<Metadata::Structural::ANCPacketsDescriptor>();
    EXPECT_EQ(*descriptor.linkedTrack(), 7u);
    EXPECT_EQ(*descriptor.sampleRate(), Types::Rational(30000, 1001));
    EXPECT_EQ(descriptor.containerDuration()->value(), 3);
    EXPECT_EQ(*descriptor.essenceContainer(), packets.universalLabel());
}

TEST(S436MAnalyzers, StandOncePerContainer)
{
    using Analyzer = Templates::SharedPtr<GenericContainer::EssenceAnalyzer>;
    CountingBlocks blocks;
    auto const source = pieceSource(blocks, {});
    GenericContainer::Multiplexer::Mux mux(nullptr, VBIDataAnalyzer(source).universalLabel(), 25);
    mux.addAnalyzer(Analyzer(new VBIDataAnalyzer(source)), false, 0);
    mux.addAnalyzer(Analyzer(new ANCPacketsAnalyzer(source)), false, 0);
    EXPECT_FAILURE(InvalidFormat,
                   "!vbiDataAnalyzerExists_: There can be only one VBIDataAnalyzer per Content Package (S436M-4.2).",
                   mux.addAnalyzer(Analyzer(new VBIDataAnalyzer(source)), false, 0));
    EXPECT_FAILURE(InvalidFormat,
                   "!ancPacketsAnalyzerExists_: There can be only one ANCPacketsAnalyzer per Content Package "
                   "(S436M-4.2).",
                   mux.addAnalyzer(Analyzer(new ANCPacketsAnalyzer(source)), false, 0));
}

}}
