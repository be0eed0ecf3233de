// Frame-wrapped containers, from essence in memory to the bytes that they give
// and the index tables that tell where these are.

#include "GenericContainer/Multiplexer/Mux.h"

#include "Exceptions/Check.h"
#include "support/Failure.h"
#include "support/MemoryAnalyzer.h"
#include "support/PullContainer.h"

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

MemoryEssence same(std::size_t count, std::size_t size)
{
    return MemoryEssence::constant(count, size);
}

// Packets of system items with four bytes.
MemoryEssence systemItems(std::size_t count)
{
    MemoryEssence essence = same(count, 24);
    for (MemoryEssence::Unit & unit : essence.units)
        unit.bytes = hex("06 0E 2B 34 02 05 01 01 0D 01 03 01 04 01 01 00 83 00 00 04 00 00 00 00");
    return essence;
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

    Container & system(std::size_t count) { return add<MemorySystem>(systemItems(count)); }
    template <class... Sizes>
    Container & pictures(Sizes... sizes)
    {
        return add<MemoryPictures>(MemoryEssence::ofSizes({std::size_t(sizes)...}));
    }

    template <class... Sizes>
    Container & sound(Sizes... sizes)
    {
        return add<MemorySound>(MemoryEssence::ofSizes({std::size_t(sizes)...}));
    }

    template <class... Sizes>
    Container & data(Sizes... sizes)
    {
        return add<MemoryData>(MemoryEssence::ofSizes({std::size_t(sizes)...}));
    }

    Container & grid(unsigned int size) { return mux.kagSize(size), *this; }
    Container & package(unsigned int size) { return mux.paddToEditUnit(size), *this; }

    // Sizes of the items of system, pictures and sound.
    Container & items(int system, int pictures, int sound)
    {
        return mux.paddToItem(system, 0, pictures, sound, 0), *this;
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

using Build = void (*)(Container &);

TEST(Mux, LaysOutContentPackagesAndTheirIndex)
{
    struct Case
    {
        char const * name;
        Build build;
        char const * expected;
        MXFIO::IndexTableSegmentType index = MXFIO::INDEX_AUTOMATIC;
        bool fillIsIndexed = false;
    };
    Case const cases[] = {
        {"elements as they are", [](Container & c) { c.sound(8, 8).pictures(30, 31); }, "P0:30 S0:8 | P0:31 S0:8"},
        {"in the order in which they were added",
         [](Container & c) { c.sound(8).pictures(30).sound(9).mux.useAnalyzerInputOrderToSortContainer(true); },
         "S0:8 S1:9 P0:30"},
        {"numbers of the caller, and of data",
         [](Container & c) { c.data(5).data(6).add<MemorySound>(same(1, 8), false, 0, 9).sound(9); },
         "S9:8 S1:9 D2:5 D3:6"},
        {"elements on a grid, where a gap of 14 is too small",
         [](Container & c) { c.pictures(30, 31).sound(8, 8).grid(64); }, "P0:30 f78 S0:8 f36 | P0:31 f77 S0:8 f36"},
        {"constant elements on a grid, one of them just so long",
         [](Container & c) { c.add<MemoryPictures>(same(2, 44)).add<MemorySound>(same(2, 50)).grid(64); },
         "P0:44 S0:50 f58 | P0:44 S0:50 f58"},
        {"constant elements with their fill in the index",
         [](Container & c) { c.add<MemoryPictures>(same(2, 50)).add<MemorySound>(same(2, 50)).grid(64); },
         "P0:50 f58 S0:50 f58 | P0:50 f58 S0:50 f58", MXFIO::INDEX_AUTOMATIC_WITH_FILL, true},
        {"a system item on a grid, whose fill the index leaves out",
         [](Container & c) { c.system(2).add<MemoryPictures>(same(2, 108)).grid(128); },
         "X:4 f104 P0:108 | X:4 f104 P0:108", MXFIO::INDEX_AUTOMATIC_WITH_FILL},
        {"variable elements filled to their bound",
         [](Container & c)
         {
             MemoryEssence bounded = MemoryEssence::ofSizes({30, 31});
             bounded.bound = 31;
             c.add<MemoryPictures>(bounded, true).add<MemorySound>(same(2, 8));
         },
         "P0:30 f21 S0:8 | P0:31 f20 S0:8"},
        {"the same ahead of variable ones, where it starts no slice",
         [](Container & c)
         {
             MemoryEssence bounded = MemoryEssence::ofSizes({30, 31});
             bounded.bound = 31;
             c.add<MemoryPictures>(bounded, true).sound(8, 9).data(5, 6);
         },
         "P0:30 f21 S0:8 D2:5 | P0:31 f20 S0:9 D2:6", MXFIO::INDEX_AUTOMATIC_WITH_FILL},
        {"items of a size",
         [](Container & c) { c.system(2).pictures(30, 31).sound(8, 8).sound(8, 8).items(64, 200, 100); },
         "X:4 f40 P0:30 f150 S0:8 S1:8 f44 | X:4 f40 P0:31 f149 S0:8 S1:8 f44"},
        {"variable items with their fill in the index",
         [](Container & c) { c.pictures(30, 31).sound(8, 9).items(0, 200, 100); },
         "P0:30 f150 S0:8 f72 | P0:31 f149 S0:9 f71", MXFIO::INDEX_AUTOMATIC_WITH_FILL, true},
        {"constant items of a size on a grid",
         [](Container & c)
         {
             c.system(2).add<MemoryPictures>(same(2, 30)).add<MemorySound>(same(2, 8)).add<MemorySound>(same(2, 8));
             c.grid(128).items(64, 200, 100);
         },
         "X:4 f104 P0:30 f206 S0:8 S1:8 f72 | X:4 f104 P0:30 f206 S0:8 S1:8 f72"},
        {"content packages of a size, that of items forgotten",
         [](Container & c) { c.system(2).pictures(30, 31).sound(8, 8).items(1, 1, 1).package(200); },
         "X:4 P0:30 S0:8 f98 | X:4 P0:31 S0:8 f97"},
        {"a content package of one element", [](Container & c) { c.add<MemoryPictures>(same(2, 30)).package(100); },
         "P0:30 f50 | P0:30 f50"},
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
        expectIndexed(*source, pulled, c.fillIsIndexed);
    }
}

TEST(Mux, WritesKeysLengthsAndEssence)
{
    Container container;
    container.sound(2).sound(3).grid(24);
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
    container.pictures(size);
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

// An edit unit for each count of samples at 48 kHz.
MemoryEssence samples(std::vector<int> const & counts)
{
    MemoryEssence essence;
    for (int count : counts)
        essence.units.push_back({{1}, 0x80, 0, {}, Rate(count, 48000)});
    return essence;
}

TEST(Mux, KeepsTimeBetweenAnalyzersOfDifferentRates)
{
    struct Case
    {
        char const * name;
        Build build;
        char const * expected;
        Rate rate = 25;
    };
    Case const cases[] = {
        {"sound of whole samples at an NTSC rate",
         [](Container & c) {
             c.pictures(9, 9, 9, 9).add<MemorySound>(samples({1602, 1601, 1602, 1601}));
         },
         "P0:9 S0:1 | P0:9 S0:1 | P0:9 S0:1 | P0:9 S0:1",
         {30000, 1001}},
        {"two edit units in a content package",
         [](Container & c)
         {
             MemoryEssence twice = MemoryEssence::ofSizes({1, 2, 3, 4, 5, 6});
             twice.unitsPerPackage = 2;
             c.pictures(9, 9, 9).add<MemorySound>(twice);
         },
         "P0:9 S0:3 | P0:9 S0:7 | P0:9 S0:11"},
        {"essence that starts later",
         [](Container & c) {
             c.pictures(9, 9, 9).add<MemorySound>(MemoryEssence::ofSizes({1, 2}), false, {1, 25});
         },
         "P0:9 | P0:9 S0:1 | P0:9 S0:2"},
        {"constant essence that starts later leaves room",
         [](Container & c) { c.pictures(9, 9).add<MemorySound>(same(2, 5), true, Seconds(1, 25)); },
         "P0:9 f25 | P0:9 S0:5"},
        {"essence that starts earlier",
         [](Container & c) { c.pictures(9, 9).add<MemorySound>(same(3, 5), false, Seconds(-1, 25)); },
         "P0:9 S0:10 | P0:9 S0:5"},
        {"the first that ends ends all", [](Container & c) { c.pictures(9, 9, 9).sound(1, 2); },
         "P0:9 S0:1 | P0:9 S0:2"},
        {"all go on to the end, a system item as long as the others",
         [](Container & c)
         {
             c.system(9).pictures(9).sound(5, 6, 7).mux.multiplexAllEssence(true);
             c.add<MemorySoundOrSilence>(MemoryEssence::ofSizes({4, 4}));
         },
         "X:4 P0:9 S0:5 S1:4 | X:4 P0:0 S0:6 S1:4 | X:4 P0:0 S0:7 S1:1"},
        {"pre-charge of one is null essence of the other",
         [](Container & c)
         {
             MemoryEssence early = MemoryEssence::ofSizes({9, 9, 9});
             early.preCharge = Rate(2, 25);
             c.add<MemoryPictures>(early).add<MemorySoundOrSilence>(MemoryEssence::ofSizes({5})).sound(7);
         },
         "P0:9 S0:1 S1:0 | P0:9 S0:1 S1:0 | P0:9 S0:5 S1:7"},
        {"nothing to multiplex", [](Container &) {}, ""},
    };
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.name);
        Container container(c.rate);
        c.build(container);
        EXPECT_EQ(container.text(), c.expected);
    }
}

TEST(Mux, RefusesWhatDoesNotFit)
{
    MemoryEssence const valid = MemoryEssence::ofSizes({1});
    MemoryEssence tooLong = same(1, 10), invalid = valid, temporal = valid;
    tooLong.units[0].bytes.push_back(0);
    invalid.isValid = false;
    temporal.isTemporal = true;
    MemoryEssence faster = temporal;
    faster.unitsPerPackage = 2;

    EXPECT_FAILURE(InvalidLength,
                   "editUnitCurrentSize <= analyzerBytesPerEntry: One analyzer (CBE) has produced an edit unit larger "
                   "than expected",
                   Container().add<MemoryPictures>(tooLong).text());
    EXPECT_FAILURE(InvalidLength,
                   "itemSize > sliceOffset_ - lastItemSliceOffset_: Trying to store more data in the Generic Container "
                   "then the edit unit can hold.",
                   Container().pictures(80).items(0, 100, 0).text());
    EXPECT_FAILURE(InvalidLength, "editUnitFillItemSize >= klLength_: Not enough size to create filler in essence.",
                   Container().pictures(61).package(100).text());
    EXPECT_FAILURE(InvalidLength, "A value of 16777216 bytes has no room in a length field of 4 bytes",
                   Container().pictures(1 << 24).text());

    for (bool const inSystem : {false, true})
    {
        Container container;
        inSystem ? container.add<MemorySystem>(invalid) : container.add<MemorySound>(invalid);
        EXPECT_FAILURE(InvalidFormat, "isValid: The essence format is invalid", container.text());
    }
    EXPECT_FAILURE(InvalidFormat,
                   "temporalReordering_ == false: Trying to set two sources with temporal reordoring to the same "
                   "generic container. MXF only allows for one source with temporal reordoring.",
                   Container().add<MemoryPictures>(temporal).add<MemoryPictures>(temporal).text());
    EXPECT_FAILURE(InvalidFormat,
                   "preEntry.analyzer -> editRate () == rate_: Trying to set an essence analyzer with temporal "
                   "reordoring and with editRate different from the content package.",
                   Container().add<MemoryPictures>(faster).text());
    EXPECT_FAILURE(InvalidFormat,
                   "preEntry.temporalOffset.numerator () == 0: A source with temporal reordoring must start at offset "
                   "zero to the essence container.",
                   Container().add<MemoryPictures>(temporal, false, {1, 25}).text());
    EXPECT_FAILURE(InvalidFormat,
                   "static_cast <Platform::Int32> (entry.entryByteCount) <= systemItemMaximumSize: Trying to force "
                   "into the GC a system Item maximum value smaller then the system Item size. Please increate the "
                   "system item maximum size",
                   Container().system(1).items(23, 0, 0).text());

    EXPECT_FAILURE(AlreadySet, "system_.get () == 0: Trying to add more than one SystemAnalyzer",
                   Container().system(1).system(1));
    Container container;
    for (int i = 0; i < 128; ++i)
        container.sound(1);
    EXPECT_FAILURE(IndexOutOfBounds,
                   "sound_.size () <= MAXIMUM_ITEM_COUNT: Trying to add more than SoundAnalyzers than allowed",
                   container.sound(1));
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
        if (MemoryPictures::done() && breaksDown)
            VANTRY_FAIL(IOError, "the tape is torn");
        MemoryPictures::nextEditUnit(unit);
        return unit.valid = true;
    }

    bool done() override { return false; }

    bool breaksDown = true;
};

TEST(Mux, PassesOnTheFailureOfAnAnalyzer)
{
    Container container;
    container.sound(1, 2, 3).add<FailingPictures>(MemoryEssence::ofSizes({1}));
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
    container.grid(64);
    MemoryEssence sound = MemoryEssence::ofSizes({1});
    sound.kagSize = 96;
    container.add<MemorySound>(sound);
    EXPECT_EQ(container.mux.nextBaseTrackID(), 256u);
    EXPECT_FALSE(container.mux.nextBaseTrackID(256));
    EXPECT_TRUE(container.mux.nextBaseTrackID(7));
    container.add<MemorySound>(sound).add<MemorySound>(sound);
    EXPECT_EQ(container.mux.nextBaseTrackID(), 263u);
    EXPECT_EQ(container.mux.commit()->kagSize(), 192u);

    EXPECT_EQ(Container().grid(0).grid(512).mux.commit()->kagSize(), 0u);
}

}}}}
