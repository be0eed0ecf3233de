// Frame-wrapped containers, from essence in memory to the bytes that they give
// and the index tables that tell where these are.

#include "GenericContainer/Multiplexer/Mux.h"

#include "Exceptions/AlreadySet.h"
#include "Exceptions/Check.h"
#include "Exceptions/IOError.h"
#include "Exceptions/IndexOutOfBounds.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/InvalidState.h"
#include "support/Failure.h"
#include "support/MemoryAnalyzer.h"
#include "support/PullContainer.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace Vantry { namespace GenericContainer { namespace Multiplexer { namespace {

using namespace Tests;
using Rate = Templates::Rational<int>;
using Seconds = Templates::Rational<Int64>;
using MemoryData = MemoryAnalyzer<DataAnalyzer>;
using MemorySystem = MemoryAnalyzer<SystemAnalyzer>;

Types::UniversalLabel label()
{
    return Types::UniversalLabel(hex("06 0E 2B 34 04 01 01 02 0D 01 03 01 02 04 60 01").data());
}

// A builder without metadata, and the analyzers of what it builds.
class Container
{
public:
    explicit Container(Rate const & rate = 25) : mux(nullptr, label(), rate) {}

    template <class Analyzer>
    Container & add(MemoryEssence essence, bool fill = false, Seconds const & offset = 0, unsigned char number = 255)
    {
        Templates::SharedPtr<EssenceAnalyzer> const analyzer(new Analyzer(std::move(essence)));
        mux.addAnalyzer(analyzer, fill, offset, number);
        analyzers.push_back(analyzer);
        return *this;
    }

    std::string text()
    {
        auto const source = mux.commit();
        return PulledContainer(*source).text();
    }

    // They have the blocks of their essence, and go last.
    std::vector<Templates::SharedPtr<EssenceAnalyzer>> analyzers;
    Mux mux;
};

// The packet of a system item with four bytes.
MemoryEssence systemItems(std::size_t count)
{
    MemoryEssence essence = MemoryEssence::constant(count, 24);
    for (MemoryEssence::Unit & unit : essence.units)
        unit.bytes = hex("06 0E 2B 34 02 05 01 01 0D 01 03 01 04 01 01 00 83 00 00 04 00 00 00 00");
    return essence;
}

TEST(Mux, LaysOutContentPackagesAndTheirIndex)
{
    auto const pictures = []
    {
        return MemoryEssence::ofSizes({30, 31});
    };
    auto const sound = []
    {
        return MemoryEssence::ofSizes({8, 8});
    };
    struct Case
    {
        char const * name;
        std::function<void(Container &)> build;
        char const * expected;
        MXFIO::IndexTableSegmentType index;
    };
    Case const cases[] = {
        {"elements as they are", [&](Container & c) { c.add<MemorySound>(sound()).add<MemoryPictures>(pictures()); },
         "P0:30 S0:8 | P0:31 S0:8", MXFIO::INDEX_AUTOMATIC},
        {"in the order in which they were added",
         [&](Container & c)
         {
             c.add<MemorySound>(sound()).add<MemoryPictures>(pictures()).add<MemorySound>(sound());
             c.mux.useAnalyzerInputOrderToSortContainer(true);
         },
         "S0:8 S1:8 P0:30 | S0:8 S1:8 P0:31", MXFIO::INDEX_AUTOMATIC},
        {"numbers of the caller, and of data",
         [&](Container & c)
         {
             c.add<MemoryData>(sound()).add<MemoryData>(sound()).add<MemorySound>(sound(), false, 0, 9);
             c.add<MemorySound>(sound());
         },
         "S9:8 S1:8 D2:8 D3:8 | S9:8 S1:8 D2:8 D3:8", MXFIO::INDEX_AUTOMATIC},
        {"elements on a grid, where a gap of 14 is too small",
         [&](Container & c)
         {
             c.add<MemoryPictures>(pictures()).add<MemorySound>(sound());
             c.mux.kagSize(64);
         },
         "P0:30 f78 S0:8 f36 | P0:31 f77 S0:8 f36", MXFIO::INDEX_AUTOMATIC},
        {"constant elements on a grid, one of them just so long",
         [&](Container & c)
         {
             c.add<MemoryPictures>(MemoryEssence::constant(2, 44)).add<MemorySound>(MemoryEssence::constant(2, 50));
             c.mux.kagSize(64);
         },
         "P0:44 S0:50 f58 | P0:44 S0:50 f58", MXFIO::INDEX_AUTOMATIC},
        {"constant elements with their fill in the index",
         [&](Container & c)
         {
             c.add<MemoryPictures>(MemoryEssence::constant(2, 50)).add<MemorySound>(MemoryEssence::constant(2, 50));
             c.mux.kagSize(64);
         },
         "P0:50 f58 S0:50 f58 | P0:50 f58 S0:50 f58", MXFIO::INDEX_AUTOMATIC_WITH_FILL},
        {"variable elements filled to their bound",
         [&](Container & c)
         {
             MemoryEssence bounded = pictures();
             bounded.bound = 31;
             c.add<MemoryPictures>(bounded, true).add<MemorySound>(MemoryEssence::constant(2, 8));
         },
         "P0:30 f21 S0:8 | P0:31 f20 S0:8", MXFIO::INDEX_AUTOMATIC},
        {"items of a size",
         [&](Container & c)
         {
             c.add<MemorySystem>(systemItems(2)).add<MemoryPictures>(pictures());
             c.add<MemorySound>(MemoryEssence::constant(2, 8)).add<MemorySound>(MemoryEssence::constant(2, 8));
             c.mux.paddToItem(64, 0, 200, 100, 0);
         },
         "X:4 f40 P0:30 f150 S0:8 S1:8 f44 | X:4 f40 P0:31 f149 S0:8 S1:8 f44", MXFIO::INDEX_VARIABLE},
        {"constant items of a size on a grid",
         [&](Container & c)
         {
             c.add<MemorySystem>(systemItems(2)).add<MemoryPictures>(MemoryEssence::constant(2, 30));
             c.add<MemorySound>(MemoryEssence::constant(2, 8)).add<MemorySound>(MemoryEssence::constant(2, 8));
             c.mux.kagSize(128);
             c.mux.paddToItem(64, 0, 200, 100, 0);
         },
         "X:4 f104 P0:30 f206 S0:8 S1:8 f72 | X:4 f104 P0:30 f206 S0:8 S1:8 f72", MXFIO::INDEX_AUTOMATIC},
        {"content packages of a size",
         [&](Container & c)
         {
             c.add<MemorySystem>(systemItems(2)).add<MemoryPictures>(pictures()).add<MemorySound>(sound());
             c.mux.paddToItem(1, 1, 1, 1, 1);
             c.mux.paddToEditUnit(200);
         },
         "X:4 P0:30 S0:8 f98 | X:4 P0:31 S0:8 f97", MXFIO::INDEX_AUTOMATIC},
        {"a content package of one element",
         [&](Container & c)
         {
             c.add<MemoryPictures>(MemoryEssence::constant(2, 30));
             c.mux.paddToEditUnit(100);
         },
         "P0:30 f50 | P0:30 f50", MXFIO::INDEX_AUTOMATIC},
    };
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.name);
        Container container;
        c.build(container);
        auto const source = container.mux.commit();
        wantIndex(*source, c.index);
        PulledContainer const pulled(*source);
        EXPECT_EQ(pulled.text(), c.expected);
        expectIndexed(*source, pulled, c.index == MXFIO::INDEX_AUTOMATIC_WITH_FILL);
    }
}

TEST(Mux, WritesKeysLengthsAndEssence)
{
    Container container;
    container.add<MemorySound>(MemoryEssence::ofSizes({2})).add<MemorySound>(MemoryEssence::ofSizes({3}));
    container.mux.kagSize(24);
    auto const source = container.mux.commit();
    PulledContainer const pulled(*source);
    EXPECT_EQ(pulled.bytes(), hex("06 0E 2B 34 01 02 01 01 0D 01 03 01 16 02 01 00 83 00 00 02 01 01"
                                  "06 0E 2B 34 01 01 01 01 03 01 02 10 01 00 00 00 83 00 00 06") +
                                  repeated(6, 0) +
                                  hex("06 0E 2B 34 01 02 01 01 0D 01 03 01 16 02 01 01 83 00 00 03 01 01 01"
                                      "06 0E 2B 34 01 01 01 01 03 01 02 10 01 00 00 00 83 00 00 05") +
                                  repeated(5, 0));
    EXPECT_TRUE(pulled.pieces[0].complete);
    EXPECT_EQ(pulled.pieces[0].duration, Seconds(1, 25));
    EXPECT_TRUE(source->done());
    EXPECT_EQ(source->kagSize(), 24u);
}

TEST(Mux, MovesEssenceWithoutACopy)
{
    std::size_t const size = 400000;
    Container container;
    container.add<MemoryPictures>(MemoryEssence::ofSizes({size}));
    auto const & blocks = dynamic_cast<MemoryPictures &>(*container.analyzers[0]).blocks;
    auto const source = container.mux.commit();
    DataIO::Chain chain;
    bool complete = false;
    Templates::SharedPtr<MXFIO::FutureUpdater> updater;
    Seconds duration;
    source->next(chain, complete, updater, duration);
    ASSERT_EQ(chain.slice_count(), 2u);
    EXPECT_EQ((++chain.begin())->size(), size);
    EXPECT_EQ(blocks.made(), 1);
    EXPECT_EQ(blocks.alive(), 1);
    chain.clear();
    EXPECT_EQ(blocks.alive(), 0);
}

TEST(Mux, KeepsTimeBetweenAnalyzersOfDifferentRates)
{
    MemoryEssence const pictures = MemoryEssence::ofSizes({9, 9, 9, 9});
    auto const samples = [](std::vector<int> const & counts)
    {
        MemoryEssence essence;
        for (int count : counts)
            essence.units.push_back({repeated(1, 1), 0x80, 0, {}, Rate(count, 48000)});
        return essence;
    };
    MemoryEssence twice = MemoryEssence::ofSizes({1, 2, 3, 4, 5, 6, 7, 8});
    twice.unitsPerPackage = 2;
    MemoryEssence early = pictures;
    early.preCharge = Rate(2, 25);
    MemoryEssence timedEarly = early;
    timedEarly.preCharge = Rate(2 * 1001, 30000);

    struct Case
    {
        char const * name;
        Rate rate;
        std::function<void(Container &)> build;
        char const * expected;
    };
    Case const cases[] = {
        {"sound of whole samples at an NTSC rate",
         {30000, 1001},
         [&](Container & c) {
             c.add<MemoryPictures>(pictures).add<MemorySound>(samples({1602, 1601, 1602, 1601}));
         },
         "P0:9 S0:1 | P0:9 S0:1 | P0:9 S0:1 | P0:9 S0:1"},
        {"two edit units in a content package", 25,
         [&](Container & c) { c.add<MemoryPictures>(pictures).add<MemorySound>(twice); },
         "P0:9 S0:3 | P0:9 S0:7 | P0:9 S0:11 | P0:9 S0:15"},
        {"essence that starts later", 25,
         [&](Container & c) {
             c.add<MemoryPictures>(pictures).add<MemorySound>(MemoryEssence::ofSizes({1, 2, 3}), false, {1, 25});
         },
         "P0:9 | P0:9 S0:1 | P0:9 S0:2 | P0:9 S0:3"},
        {"essence that starts earlier", 25,
         [&](Container & c) {
             c.add<MemoryPictures>(pictures).add<MemorySound>(MemoryEssence::ofSizes({1, 2, 3, 4, 5}), false, {-1, 25});
         },
         "P0:9 S0:3 | P0:9 S0:3 | P0:9 S0:4 | P0:9 S0:5"},
        {"the first that ends ends all", 25,
         [&](Container & c) {
             c.add<MemoryPictures>(pictures).add<MemorySound>(MemoryEssence::ofSizes({1, 2}));
         },
         "P0:9 S0:1 | P0:9 S0:2"},
        {"all go on to the end, a system item as long as the others", 25,
         [&](Container & c)
         {
             c.add<MemorySystem>(systemItems(9)).add<MemoryPictures>(MemoryEssence::ofSizes({9}));
             c.add<MemorySound>(MemoryEssence::ofSizes({5, 6, 7}));
             c.add<MemorySoundOrSilence>(MemoryEssence::ofSizes({5, 6}));
             c.mux.multiplexAllEssence(true);
         },
         "X:4 P0:9 S0:5 S1:5 | X:4 P0:0 S0:6 S1:6 | X:4 P0:0 S0:7 S1:1"},
        {"pre-charge of one is null essence of the other", 25,
         [&](Container & c)
         {
             c.add<MemoryPictures>(early).add<MemorySoundOrSilence>(MemoryEssence::ofSizes({5, 6}));
             c.add<MemorySound>(MemoryEssence::ofSizes({7, 8}));
         },
         "P0:9 S0:1 S1:0 | P0:9 S0:1 S1:0 | P0:9 S0:5 S1:7 | P0:9 S0:6 S1:8"},
        {"nothing to multiplex", 25, [](Container &) {}, ""},
    };
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.name);
        Container container(c.rate);
        c.build(container);
        EXPECT_EQ(container.text(), c.expected);
    }
}

TEST(Mux, IndexesPicturesInTheOrderInWhichTheyAreShown)
{
    // I0 B-2 B-1 P3 B1 B2, stored as I P B B: temporal references 0 3 1 2.
    MemoryEssence pictures = MemoryEssence::ofSizes({9, 8, 7, 6});
    pictures.isTemporal = true;
    unsigned char const flags[] = {0xC0, 0x22, 0x33, 0x33};
    signed char const references[] = {0, 3, 1, 2};
    for (std::size_t i = 0; i < 4; ++i)
    {
        pictures.units[i].flags = flags[i];
        pictures.units[i].temporalOffset = references[i];
    }
    Container container;
    container.add<MemoryPictures>(pictures).add<MemorySound>(MemoryEssence::constant(4, 8));
    auto const source = container.mux.commit();
    wantIndex(*source, MXFIO::INDEX_AUTOMATIC);
    PulledContainer const pulled(*source);
    expectIndexed(*source, pulled, false);
    auto const segments = indexOf(*source);
    for (unsigned int i = 0; i < 4; ++i)
    {
        IndexTables::IndexEntry const & entry = segments.back()->indexEntry(i);
        EXPECT_EQ(entry.flags(), flags[i]);
        EXPECT_EQ(entry.keyFrameOffset(), -static_cast<int>(i));
    }
    EXPECT_EQ(segments.back()->deltaEntry(0).posTableIndex(), -1);
}

TEST(Mux, RefusesWhatDoesNotFit)
{
    auto const sizes = [](std::vector<std::size_t> const & all)
    {
        return MemoryEssence::ofSizes(all);
    };
    MemoryEssence tooLong = MemoryEssence::constant(1, 10);
    tooLong.units[0].bytes.push_back(0);
    MemoryEssence invalid = sizes({1}), temporal = sizes({1}), faster = sizes({1}), endless = sizes({});
    invalid.isValid = false;
    temporal.isTemporal = true;
    faster.isTemporal = true;
    faster.unitsPerPackage = 2;

    struct Case
    {
        char const * message;
        std::function<void(Container &)> build;
    };
    Case const lengths[] = {
        {"editUnitCurrentSize <= analyzerBytesPerEntry: One analyzer (CBE) has produced an edit unit larger than "
         "expected",
         [&](Container & c)
         {
             c.add<MemoryPictures>(tooLong);
         }},
        {"itemSize > sliceOffset_ - lastItemSliceOffset_: Trying to store more data in the Generic Container then the "
         "edit unit can hold.",
         [&](Container & c)
         {
             c.add<MemoryPictures>(sizes({80}));
             c.mux.paddToItem(0, 0, 100, 0, 0);
         }},
        {"editUnitFillItemSize >= klLength_: Not enough size to create filler in essence.",
         [&](Container & c)
         {
             c.add<MemoryPictures>(sizes({61}));
             c.mux.paddToEditUnit(100);
         }},
        {"ByteCoders::calculateBERSize(length) <= lengthSize: A value of 16777216 bytes has no room in a length field "
         "of 4 bytes",
         [&](Container & c)
         {
             c.add<MemoryPictures>(sizes({1 << 24}));
         }},
    };
    for (Case const & c : lengths)
    {
        Container container;
        c.build(container);
        EXPECT_FAILURE(InvalidLength, c.message, container.text());
    }

    Case const formats[] = {
        {"isValid: The essence format is invalid",
         [&](Container & c)
         {
             c.add<MemoryPictures>(invalid);
         }},
        {"isValid: The essence format is invalid",
         [&](Container & c)
         {
             c.add<MemorySystem>(invalid);
         }},
        {"temporalReordering_ == false: Trying to set two sources with temporal reordoring to the same generic "
         "container. MXF only allows for one source with temporal reordoring.",
         [&](Container & c)
         {
             c.add<MemoryPictures>(temporal).add<MemoryPictures>(temporal);
         }},
        {"preEntry.analyzer -> editRate () == rate_: Trying to set an essence analyzer with temporal reordoring and "
         "with editRate different from the content package.",
         [&](Container & c)
         {
             c.add<MemoryPictures>(faster);
         }},
        {"preEntry.temporalOffset.numerator () == 0: A source with temporal reordoring must start at offset zero to "
         "the essence container.",
         [&](Container & c)
         {
             c.add<MemoryPictures>(temporal, false, {1, 25});
         }},
        {"static_cast <Platform::Int32> (entry.entryByteCount) <= systemItemMaximumSize: Trying to force into the GC a "
         "system Item maximum value smaller then the system Item size. Please increate the system item maximum size",
         [&](Container & c)
         {
             c.add<MemorySystem>(systemItems(1));
             c.mux.paddToItem(23, 0, 0, 0, 0);
         }},
    };
    for (Case const & c : formats)
    {
        Container container;
        c.build(container);
        EXPECT_FAILURE(InvalidFormat, c.message, container.mux.commit());
    }

    Container container;
    container.add<MemorySystem>(systemItems(1));
    EXPECT_FAILURE(AlreadySet, "system_.get () == 0: Trying to add more than one SystemAnalyzer",
                   container.add<MemorySystem>(systemItems(1)));
    for (int i = 0; i < 128; ++i)
        container.add<MemorySound>(sizes({1}));
    EXPECT_FAILURE(IndexOutOfBounds,
                   "sound_.size () <= MAXIMUM_ITEM_COUNT: Trying to add more than SoundAnalyzers than allowed",
                   container.add<MemorySound>(sizes({1})));
    EXPECT_FAILURE(InvalidState, "data_.sourcePackage != nullptr: The container has no source package",
                   container.mux.commit()->sourcePackage());
}

// Breaks down at its second edit unit, or stops giving them time.
class FailingPictures : public MemoryPictures
{
public:
    using MemoryPictures::MemoryPictures;

    bool nextEditUnit(EditUnit & unit) override
    {
        bool const isFirst = !MemoryPictures::done();
        if (!isFirst && breaksDown)
            VANTRY_FAIL(IOError, "the tape is torn");
        MemoryPictures::nextEditUnit(unit);
        unit.valid = true;
        return true;
    }

    bool done() override { return false; }

    bool breaksDown = true;
};

TEST(Mux, PassesOnTheFailureOfAnAnalyzer)
{
    Container container;
    container.add<MemorySound>(MemoryEssence::ofSizes({1, 2, 3}));
    container.add<FailingPictures>(MemoryEssence::ofSizes({1}));
    EXPECT_FAILURE(IOError, "the tape is torn", container.text());
    EXPECT_EQ(dynamic_cast<MemorySound &>(*container.analyzers[0]).blocks.alive(), 0);

    Container stuck;
    stuck.add<FailingPictures>(MemoryEssence::ofSizes({1}));
    dynamic_cast<FailingPictures &>(*stuck.analyzers[0]).breaksDown = false;
    EXPECT_FAILURE(InvalidState,
                   "unitsWithoutTime < MAXIMUM_UNITS_WITHOUT_TIME: An analyzer gives edit units that take no time",
                   stuck.text());
}

TEST(Mux, MergesGridsAndNumbersTracks)
{
    Container container;
    container.mux.kagSize(64);
    MemoryEssence sound = MemoryEssence::ofSizes({1});
    sound.kagSize = 96;
    container.add<MemorySound>(sound);
    EXPECT_EQ(container.mux.nextBaseTrackID(), 256u);
    EXPECT_FALSE(container.mux.nextBaseTrackID(256));
    EXPECT_TRUE(container.mux.nextBaseTrackID(7));
    container.add<MemorySound>(sound).add<MemorySound>(sound);
    EXPECT_EQ(container.mux.nextBaseTrackID(), 263u);
    EXPECT_EQ(container.mux.commit()->kagSize(), 192u);

    Container without;
    without.mux.kagSize(0);
    without.mux.kagSize(512);
    EXPECT_EQ(without.mux.commit()->kagSize(), 0u);
}

}}}}
