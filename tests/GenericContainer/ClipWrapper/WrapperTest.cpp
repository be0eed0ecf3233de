// Clip-wrapped containers, from essence in memory to the bytes that they give
// and the lengths that are patched.

#include "GenericContainer/ClipWrapper/Wrapper.h"

#include "DataIO/BufferSliceSource.h"
#include "DataIO/SliceSourceTee.h"
#include "support/Failure.h"
#include "support/MemoryAnalyzer.h"
#include "support/PullContainer.h"

#include <functional>

namespace Vantry { namespace GenericContainer { namespace ClipWrapper { namespace {

using namespace Tests;
using Analyzer = Templates::SharedPtr<EssenceAnalyzer>;
using Buffer = Templates::SharedPtr<DataIO::BufferSliceSource>;

Types::UniversalLabel label()
{
    return Types::UniversalLabel(hex("06 0E 2B 34 04 01 01 01 0D 01 03 01 02 06 02 00").data());
}

template <class Class>
Analyzer make(MemoryEssence essence)
{
    return Analyzer(new Class(std::move(essence)));
}

// The bytes of a container with what its updaters write into them.
Bytes patched(PulledContainer const & pulled)
{
    Bytes bytes = pulled.bytes();
    UInt64 offset = 0;
    for (PulledContainer::Piece const & piece : pulled.pieces)
    {
        if (piece.updater && piece.updater->prepare())
        {
            DataIO::Chain patch;
            UInt64 position = 0;
            piece.updater->patch(offset, position, patch);
            Bytes const written = bytesOf(patch);
            std::copy(written.begin(), written.end(), bytes.begin() + static_cast<std::ptrdiff_t>(position));
            EXPECT_FALSE(piece.updater->prepare()) << "the same bytes a second time";
        }
        offset += piece.bytes.size();
    }
    return bytes;
}

TEST(Wrapper, WritesALengthThatIsKnownAtOnce)
{
    Wrapper wrapper(nullptr, label(), 25, {}, 5);
    Analyzer const analyzer = make<MemorySound>(MemoryEssence::ofSizes({2, 3}));
    wrapper.addAnalyzer(analyzer);
    auto const source = wrapper.commit();
    PulledContainer const pulled(*source);
    EXPECT_EQ(pulled.bytes(), hex("06 0E 2B 34 01 02 01 01 0D 01 03 01 16 01 01 00 87 00 00 00 00 00 00 05"
                                  "01 01 02 02 02"));
    ASSERT_EQ(pulled.pieces.size(), 2u);
    EXPECT_FALSE(pulled.pieces[0].complete);
    EXPECT_TRUE(pulled.pieces[1].complete);
    EXPECT_FALSE(pulled.pieces[0].updater);
    EXPECT_EQ(pulled.pieces[1].duration, Templates::Rational<Int64>(1, 25));
    EXPECT_TRUE(source->done());
}

TEST(Wrapper, PatchesLengthsOfOneClipAfterTheOther)
{
    Wrapper wrapper(nullptr, label(), 25, {}, 0);
    wrapper.kagSize(64);
    Analyzer const sound = make<MemorySound>(MemoryEssence::ofSizes({2, 3}));
    Analyzer const pictures = make<MemoryPictures>(MemoryEssence::ofSizes({30, 31, 32}));
    wrapper.addAnalyzer(sound, 7);
    wrapper.addAnalyzer(pictures);
    auto const source = wrapper.commit();
    PulledContainer const pulled(*source);
    source->finalize();

    // An element of 93 bytes with its head leaves a gap of 11, which is too
    // small for fill.
    EXPECT_EQ(told(patched(pulled)), "P0:93 f75 S7:5 f35");
    ASSERT_EQ(pulled.pieces.size(), 5u);
    for (std::size_t i = 0; i < 5; ++i)
    {
        EXPECT_EQ(static_cast<bool>(pulled.pieces[i].updater), i == 0 || i == 3);
        EXPECT_EQ(pulled.pieces[i].complete, i == 2 || i == 4);
    }
    EXPECT_EQ(dynamic_cast<MemorySound &>(*sound).finalized, 1);
    EXPECT_EQ(dynamic_cast<MemoryPictures &>(*pictures).finalized, 1);
}

TEST(Wrapper, SetsTheLengthOfAClipThatIsBrokenOff)
{
    Wrapper wrapper(nullptr, label(), 25, {}, 0);
    Analyzer const analyzer = make<MemorySound>(MemoryEssence::ofSizes({2, 3, 4}));
    wrapper.addAnalyzer(analyzer);
    auto const source = wrapper.commit();
    Templates::SharedPtr<MXFIO::FutureUpdater> updater, none;
    {
        DataIO::Chain chain;
        bool complete = false;
        Templates::Rational<Int64> duration;
        source->next(chain, complete, updater, duration);
        source->next(chain, complete, none, duration);
    }
    EXPECT_FALSE(updater->prepare());
    source->finalize();
    ASSERT_TRUE(updater->prepare());
    DataIO::Chain patch;
    UInt64 position = 0;
    updater->patch(1000, position, patch);
    EXPECT_EQ(position, 1000u);
    EXPECT_EQ(bytesOf(patch).back(), 5);
}

// Takes its edit units from a source that it reads on its way.
class ReadingAnalyzer : public MemoryPictures
{
public:
    ReadingAnalyzer(MemoryEssence essence, Templates::SharedPtr<DataIO::SliceSource> source) :
        MemoryPictures(std::move(essence)), source_(std::move(source))
    {
    }

    bool nextEditUnit(EditUnit & unit) override
    {
        source_->read(4);
        return MemoryPictures::nextEditUnit(unit);
    }

private:
    Templates::SharedPtr<DataIO::SliceSource> source_;
};

TEST(Wrapper, TakesTheBytesOfAClipFromABuffer)
{
    for (UInt64 clipSize : {0, 11})
    {
        CountingBlocks blocks;
        Buffer const buffer(new DataIO::BufferSliceSource);
        auto const input = pieceSource(blocks, {hex("01 02 03 04"), hex("05 06 07 08"), hex("09 0A"), hex("0B")});
        Templates::SharedPtr<DataIO::SliceSource> const tee(new DataIO::SliceSourceTee(input, buffer.get()));
        Wrapper wrapper(nullptr, label(), 25, buffer, clipSize);
        wrapper.demultiplexerSource(tee, 4);
        Analyzer const analyzer(new ReadingAnalyzer(MemoryEssence::ofSizes({2, 1}), tee));
        wrapper.addAnalyzer(analyzer, 3);
        auto const source = wrapper.commit();
        wantIndex(*source, MXFIO::INDEX_AUTOMATIC);
        {
            PulledContainer const pulled(*source);
            EXPECT_EQ(patched(pulled), hex("06 0E 2B 34 01 02 01 01 0D 01 03 01 17 01 01 00 87 00 00 00 00 00 00 0B"
                                           "01 02 03 04 05 06 07 08 09 0A 0B"));
            EXPECT_TRUE(pulled.pieces.back().complete);
        }
        EXPECT_TRUE(source->done());
        auto const segments = indexOf(*source);
        ASSERT_EQ(segments.size(), 1u);
        EXPECT_EQ(segments[0]->indexDuration().value(), 2) << "rounds without edit units don't count";
    }
}

TEST(Wrapper, RefusesWhatDoesNotFit)
{
    MemoryEssence invalid = MemoryEssence::ofSizes({1}), temporal = invalid, faster = invalid;
    invalid.isValid = false;
    temporal.isTemporal = true;
    faster.isTemporal = true;
    faster.unitsPerPackage = 2;
    std::pair<std::vector<MemoryEssence>, char const *> const cases[] = {
        {{invalid}, "isValid: The essence format is invalid"},
        {{temporal, temporal},
         "temporalReordering_ == false: Trying to set two sources with temporal reordoring to the same generic "
         "container. MXF only allows for one source with temporal reordoring."},
        {{faster},
         "preEntry.analyzer -> editRate () == rate_: Trying to set an essence analyzer with temporal reordoring and "
         "with editRate different from the content package."},
    };
    for (auto const & [parts, message] : cases)
    {
        Wrapper wrapper(nullptr, label(), 25, {}, 0);
        for (MemoryEssence const & essence : parts)
            wrapper.addAnalyzer(make<MemoryPictures>(essence));
        EXPECT_FAILURE(InvalidFormat, message, wrapper.commit());
    }

    Wrapper wrapper(nullptr, label(), 25, {}, 0);
    EXPECT_FAILURE(InvalidElement, "Trying to add a SystemAnalyzer",
                   wrapper.addAnalyzer(make<MemoryAnalyzer<SystemAnalyzer>>({})));
    for (int i = 0; i < 128; ++i)
        wrapper.addAnalyzer(make<MemoryAnalyzer<DataAnalyzer>>({}));
    EXPECT_FAILURE(IndexOutOfBounds,
                   "this -> data_.size () <= MAXIMUM_ITEM_COUNT: Trying to add more DataAnalyzers than allowed",
                   wrapper.addAnalyzer(make<MemoryAnalyzer<DataAnalyzer>>({})));
    EXPECT_FALSE(wrapper.nextBaseTrackID(0));
    EXPECT_FALSE(wrapper.nextBaseTrackID(256));
    EXPECT_TRUE(wrapper.nextBaseTrackID(257));
}

}}}}
