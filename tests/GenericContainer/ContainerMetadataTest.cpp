// The package that a container gets, its tracks and descriptors, and the
// durations at the end.

#include "DataIO/Chain.h"
#include "GenericContainer/Multiplexer/Mux.h"
#include "MXFIO/FutureUpdater.h"
#include "Metadata/Structural/StructuralComponent.h"
#include "support/MemoryAnalyzer.h"
#include "support/RootMetadata.h"

#include <gtest/gtest.h>

namespace Vantry { namespace GenericContainer { namespace {

using namespace Metadata::Structural;
using namespace Tests;
using Analyzer = Templates::SharedPtr<EssenceAnalyzer>;
using Rate = Templates::Rational<int>;
using MemoryData = MemoryAnalyzer<DataAnalyzer>;
using MemoryCompound = MemoryAnalyzer<CompoundAnalyzer>;

Types::UniversalLabel label()
{
    return Types::UniversalLabel(hex("06 0E 2B 34 04 01 01 02 0D 01 03 01 02 7F 01 00").data());
}

struct Header : RootMetadata
{
    SourcePackage & package() const { return dynamic_cast<SourcePackage &>(*storage.package(0u)); }
};

// Tracks in short: "id number origin duration: lengths of components".
std::vector<std::string> tracksOf(SourcePackage const & package)
{
    std::vector<std::string> texts;
    for (unsigned int i = 0; i < package.tracksCount(); ++i)
    {
        auto const & track = dynamic_cast<TimelineTrack const &>(*package.track(i));
        Sequence const & sequence = *track.sequence();
        std::string text =
            std::to_string(track.trackID()->value()) + " " + std::to_string(track.trackNumber()->value()) + " " +
            std::to_string(track.origin()->value()) + " " + std::to_string(sequence.duration()->value()) + ":";
        for (unsigned int j = 0; j < sequence.structuralComponentsCount(); ++j)
            text += " " + std::to_string(sequence.structuralComponent(j)->duration()->value());
        texts.push_back(text);
    }
    return texts;
}

void pullAll(Source & source)
{
    for (bool goesOn = true; goesOn;)
    {
        DataIO::Chain chain;
        bool complete = false;
        Templates::SharedPtr<MXFIO::FutureUpdater> updater;
        Templates::Rational<Int64> duration;
        goesOn = source.next(chain, complete, updater, duration);
    }
    source.finalize();
}

MemoryEssence timed(std::vector<int> const & frames)
{
    MemoryEssence essence = MemoryEssence::ofSizes(std::vector<std::size_t>(frames.size(), 9));
    for (std::size_t i = 0; i < frames.size(); ++i)
        essence.units[i].timeCode = Utils::TimeCode(25, frames[i], false);
    return essence;
}

TEST(ContainerMetadata, TracksFollowTheEssence)
{
    Header header;
    Multiplexer::Mux mux(header.shared(), label(), 25, nullptr);
    MemoryEssence pictures = timed({50, 51, 52, 90, 91});
    pictures.preCharge = Rate(2, 25);
    Analyzer const picture(new MemoryPictures(pictures));
    Analyzer const sound(new MemorySound(MemoryEssence::ofSizes({1, 2, 3, 4})));
    mux.addAnalyzer(sound, false, 0);
    mux.addAnalyzer(picture, false, 0);
    auto const source = mux.commit();
    EXPECT_EQ(&source->sourcePackage(), &header.package());
    // Sound comes with pictures in front; tracks come in the order of the
    // container, and each starts behind the pre-charge.
    EXPECT_EQ(tracksOf(header.package()),
              (std::vector<std::string>{"512 352387328 2 -1: -1", "256 369164544 2 -1: -1"}));
    pullAll(*source);
    EXPECT_EQ(tracksOf(header.package()), (std::vector<std::string>{"512 352387328 2 3: 3", "256 369164544 2 3: 3"}));
    EXPECT_EQ(dynamic_cast<MemorySound &>(*sound).finalized, 1);
}

TEST(ContainerMetadata, TimeCodeFollowsTheFirstAnalyzer)
{
    Header header;
    Multiplexer::Mux mux(header.shared(), label(), 25, nullptr);
    Analyzer const picture(new MemoryPictures(timed({50, 51, 52, 90, 91})));
    Analyzer const sound(new MemorySound(MemoryEssence::ofSizes({1, 2, 3, 4})));
    mux.addAnalyzer(picture, false, 0);
    mux.addAnalyzer(sound, false, 0);
    auto const source = mux.commit();
    pullAll(*source);
    EXPECT_EQ(tracksOf(header.package()),
              (std::vector<std::string>{"256 352387328 0 4: 4", "512 369164544 0 4: 4", "0 0 0 4: 3 1"}));
}

template <class Class>
void add(Multiplexer::Mux & mux, int count)
{
    for (int i = 0; i < count; ++i)
        mux.addAnalyzer(Analyzer(new Class(MemoryEssence::ofSizes({1}))), false, 0);
}

TEST(ContainerMetadata, PackageSaysWhatIsInIt)
{
    std::tuple<int, int, int, int, unsigned char> const cases[] = {
        {1, 0, 0, 0, 13}, {0, 1, 1, 0, 13}, {0, 1, 0, 1, 13}, {0, 0, 1, 1, 13}, {0, 1, 0, 0, 5},  {0, 2, 0, 0, 6},
        {0, 0, 1, 0, 8},  {0, 0, 2, 0, 9},  {0, 0, 0, 1, 11}, {0, 0, 0, 2, 12}, {0, 0, 0, 0, 15},
    };
    for (auto const & [compounds, pictures, sounds, data, material] : cases)
    {
        Header header;
        Multiplexer::Mux mux(header.shared(), label(), {30000, 1001}, nullptr);
        add<MemoryCompound>(mux, compounds);
        add<MemoryPictures>(mux, pictures);
        add<MemorySound>(mux, sounds);
        add<MemoryData>(mux, data);
        mux.commit();

        SourcePackage const & package = header.package();
        EXPECT_EQ((*package.packageUID())[10], material);
        EXPECT_EQ(Platform::wstringToString(package.packageName()->value()), "Source Package");
        auto const * const several = dynamic_cast<MultipleDescriptor const *>(package.descriptor());
        auto const count = static_cast<unsigned int>(compounds + pictures + sounds + data);
        ASSERT_EQ(several != nullptr, count > 1);
        if (several == nullptr)
            continue;
        EXPECT_EQ(several->subDescriptorsCount(), count);
        EXPECT_EQ(*several->sampleRate(), Types::Rational(30000, 1001));
        EXPECT_EQ(*several->essenceContainer(), label());
    }
}

}}}
