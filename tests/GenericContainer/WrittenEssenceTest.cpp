// Essence from memory, through containers of each shape and a creator into a
// file, and back by the readers: every edit unit by its index.

#include "GenericContainer/ClipWrapper/Wrapper.h"
#include "GenericContainer/Multiplexer/Mux.h"
#include "MXFIO/FutureUpdater.h"
#include "OPBuilders/GenericOPBuilder.h"
#include "Utils/Test/DeterministicScope.h"
#include "support/BuiltMetadata.h"
#include "support/BytesFile.h"
#include "support/MemoryAnalyzer.h"
#include "support/UseContainer.h"
#include "support/WrittenFile.h"

namespace Vantry { namespace GenericContainer { namespace {

using namespace Tests;
using Analyzer = Templates::SharedPtr<EssenceAnalyzer>;

unsigned int const UNITS = 12;
char const * const CLIP_OF_WAVE = "06 0E 2B 34 04 01 01 01 0D 01 03 01 02 06 02 00";

struct Plan
{
    char const * name;
    bool isClip = false;
    bool isConstant = false;
    unsigned int kagSize = 1;
    unsigned int packageSize = 0;
    unsigned int unitsPerPartition = 0;
    MXFIO::IndexTableGeneration duringEssence = MXFIO::INDEX_NONE;
    int pictureItemSize = 0;
    UInt64 clipSize = 0;
    UInt64 runInSize = 0;
};

class Writing
{
public:
    explicit Writing(Plan const & plan) : file_(plan.runInSize)
    {
        Templates::auto_ptr<Source> source = plan.isClip ? clip(plan) : frames(plan);
        builder().createMaterialPackage(Utils::TimeCode(25), 25)->addSourcePackage(0, source->sourcePackage());
        builder().update();
        MXFIO::Creator creator(builder().metadata(), file_, 4096, 0);
        creator.masterEditUnitsPerPartition(plan.unitsPerPartition);
        creator.addEssenceContainer(source, plan.duringEssence, MXFIO::INDEX_FOLLOWING, false, MXFIO::INDEX_AUTOMATIC);
        write(creator);
        builder().update();
        finish(creator, file_);
    }

    Bytes const & bytes() const { return file_.bytes; }

    // What each track, in the order of the file, was made of.
    std::vector<MemoryEssence> const & essence() const { return essence_; }

private:
    OPBuilders::GenericOPBuilder & builder() { return metadata_.builder; }

    template <class Class>
    Analyzer analyzer(Plan const & plan, std::size_t size)
    {
        std::vector<std::size_t> sizes;
        for (unsigned int i = 0; i < UNITS; ++i)
            sizes.push_back(plan.isConstant ? size : size + i);
        MemoryEssence essence = plan.isConstant ? MemoryEssence::constant(UNITS, size) : MemoryEssence::ofSizes(sizes);
        if (plan.isClip)
            essence.label = CLIP_OF_WAVE;
        essence_.push_back(essence);
        analyzers_.emplace_back(new Class(essence));
        return analyzers_.back();
    }

    Templates::auto_ptr<Source> frames(Plan const & plan)
    {
        Multiplexer::Mux mux(builder().metadata(), Types::UniversalLabel(hex(MemoryEssence().label).data()), 25,
                             nullptr);
        mux.kagSize(plan.kagSize);
        if (plan.packageSize != 0)
            mux.paddToEditUnit(plan.packageSize);
        if (plan.pictureItemSize != 0)
            mux.paddToItem(0, 0, plan.pictureItemSize, 256, 0);
        mux.addAnalyzer(analyzer<MemoryPictures>(plan, 300), false, 0);
        mux.addAnalyzer(analyzer<MemorySound>(plan, 20), false, 0);
        mux.addAnalyzer(analyzer<MemorySound>(plan, 40), false, 0);
        return mux.commit();
    }

    Templates::auto_ptr<Source> clip(Plan const & plan)
    {
        ClipWrapper::Wrapper wrapper(builder().metadata(), Types::UniversalLabel(hex(CLIP_OF_WAVE).data()), 25, {},
                                     plan.clipSize);
        wrapper.kagSize(plan.kagSize);
        wrapper.addAnalyzer(analyzer<MemorySound>(plan, 40));
        return wrapper.commit();
    }

    // They have the blocks of the essence, and go last.
    std::vector<Analyzer> analyzers_;
    std::vector<MemoryEssence> essence_;
    BuiltMetadata<OPBuilders::GenericOPBuilder> metadata_{sharedLenientDictionary(), nullptr, false, false};
    BytesFile file_;
};

// All edit units of a track, from the last to the first.
void expectUnits(MXFIO::ContentStorageReader & content, unsigned int trackNumber, MemoryEssence const & essence)
{
    auto const reader =
        content.elementReader(content.trackNumber2TrackID(trackNumber), 0, UNITS, {25, 1}, content.isClipWrapped());
    for (unsigned int i = UNITS; i-- != 0;)
    {
        ASSERT_TRUE(reader->setPosition(i)) << i;
        MXFIO::ElementEditUnit unit;
        ASSERT_TRUE(reader->nextElement(SEARCH_LIMIT, unit)) << i;
        Bytes bytes(unit.payloadBytes());
        unit.packet->value().read(bytes.data(), bytes.size());
        EXPECT_EQ(bytes, essence.units[i].bytes) << i;
    }
}

TEST(WrittenEssence, IsReadBack)
{
    Plan plans[] = {
        {"frames of any size"},
        {"frames on a grid, in partitions with indexes"},
        {"frames of one size", false, true},
        {"frames of one size on a grid", false, true, 512, 0, 5},
        {"content packages of a size", false, false, 1, 1024},
        {"a clip of edit units of any size", true},
        {"a clip of edit units of one size, on a grid", true, true, 512},
        {"items of a size"},
        {"a clip of a size that is known, in partitions behind a run-in", true, true, 1, 0, 5},
    };
    plans[1].kagSize = 512;
    plans[1].unitsPerPartition = 5;
    plans[1].duringEssence = MXFIO::INDEX_FOLLOWING;
    plans[1].runInSize = 100;
    plans[7].pictureItemSize = 512;
    plans[8].clipSize = 40 * UNITS;
    plans[8].runInSize = 100;
    for (Plan const & plan : plans)
    {
        SCOPED_TRACE(plan.name);
        Utils::Test::DeterministicScope const scope;
        Writing const writing(plan);
        BytesSource source(writing.bytes());
        EXPECT_EQ(WrittenFile(source).faults(), std::vector<std::string>());

        BytesSource read(writing.bytes());
        MXFIO::Reader2 reader(read, ::Vantry::Schema::builtInDictionary(), SEARCH_LIMIT);
        unsigned int containers = 0;
        forEachContainer(reader,
                         [&](MXFIO::ContentStorageReader & content)
                         {
                             ++containers;
                             auto const tracks = content.elements();
                             ASSERT_EQ(tracks.size(), writing.essence().size());
                             for (std::size_t i = 0; i < tracks.size(); ++i)
                                 expectUnits(content, tracks[i], writing.essence()[i]);
                         });
        EXPECT_EQ(containers, 1u);
    }
}

TEST(WrittenEssence, IsTheSameEachTime)
{
    Plan const plan = {"", false, false, 512, 0, 5, MXFIO::INDEX_FOLLOWING};
    std::vector<Bytes> files;
    for (int i = 0; i < 2; ++i)
    {
        Utils::Test::DeterministicScope const scope;
        files.push_back(Writing(plan).bytes());
    }
    EXPECT_EQ(files[0], files[1]);
}

}}}
