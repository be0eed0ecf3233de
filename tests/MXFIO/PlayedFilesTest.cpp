// Plays the files of many makers: in step, in file order, and from any place.

#include "KLV/Packet.h"
#include "MXFIO/ElementEditUnit.h"
#include "MXFIO/EssenceReader.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Types/Rational.h"
#include "support/FFmpeg.h"
#include "support/HeaderMetadata.h"
#include "support/OpenFile.h"
#include "support/Samples.h"
#include "support/UseReader.h"

#include <map>
#include <set>

namespace Vantry { namespace MXFIO { namespace {

using namespace Tests;
using Time = Templates::Rational<Int64>;

// A file with its material package.
class PlayedFile
{
public:
    explicit PlayedFile(Bytes bytes) :
        source_(std::move(bytes)), reader_(source_, HeaderMetadata::dictionary(), SEARCH_LIMIT)
    {
        metadata_ = reader_.firstPartitionWithFinalMetadata()->metadata();
        Metadata::Structural::Preface const & preface = Metadata::Structural::findPreface(*metadata_);
        Metadata::Structural::ContentStorage const & storage = *preface.contentStorage();
        for (unsigned int i = 0; i < storage.packagesCount() && !essence_; ++i)
            if (dynamic_cast<Metadata::Structural::MaterialPackage *>(storage.package(i)) != nullptr)
                essence_ = std::make_unique<EssenceReader>(reader_, preface, *storage.package(i), true, true,
                                                           Templates::SharedPtr<ContentStorageProfile>());
    }

    EssenceReader & essence() { return *essence_; }

private:
    BytesSource source_;
    Reader2 reader_;
    Templates::SharedPtr<Metadata::PartitionMetadata> metadata_;
    std::unique_ptr<EssenceReader> essence_;
};

// Where each edit unit of each track is.
using Places = std::map<std::pair<unsigned int, Int64>, UInt64>;

struct Playing
{
    Places places;
    std::size_t units = 0;
};

Playing play(EssenceReader & essence)
{
    Playing playing;
    ElementEditUnit unit;
    while (essence.nextElementEditUnit(4096, unit))
    {
        playing.places[{unit.trackID, unit.editUnit}] = unit.packet->keyAbsoluteOffset() + unit.headBytes;
        ++playing.units;
    }
    return playing;
}

// Goes to edit units of the first track, near and far, and compares what comes
// with what came when all was played.
void seekEverywhere(EssenceReader & essence, Places const & places)
{
    Types::Rational const & rate = *essence.essenceTracks().front()->editRate();
    Time const period(rate.denominator(), rate.numerator());
    auto const isOfFirst = [&](Places::value_type const & place)
    {
        return place.first.first == essence.essenceTrackIDs().front();
    };
    Int64 const units = std::count_if(places.begin(), places.end(), isOfFirst);
    for (Int64 const target : {units - 1, Int64(0), units / 2, units / 3, std::min<Int64>(1, units - 1)})
    {
        SCOPED_TRACE(target);
        EXPECT_TRUE(essence.seek(Time(target) * period));
        ElementEditUnit unit;
        for (unsigned int i = 0; i < 5 && essence.nextElementEditUnit(4096, unit); ++i)
        {
            auto const place = places.find({unit.trackID, unit.editUnit});
            ASSERT_NE(place, places.end()) << unit.trackID << ' ' << unit.editUnit;
            EXPECT_EQ(unit.packet->keyAbsoluteOffset() + unit.headBytes, place->second) << unit.editUnit;
        }
    }
}

// Returns how many edit units there are.
std::size_t playAndSeek(std::filesystem::path const & path)
{
    PlayedFile file(readFile(path));
    EssenceReader & essence = file.essence();
    Playing const inStep = play(essence);
    EXPECT_EQ(inStep.places.size(), inStep.units) << "each edit unit comes once";
    if (inStep.units == 0)
        return 0;

    seekEverywhere(essence, inStep.places);
    if (essence.indexTableHandlingMode(INDEX_TABLE_IGNORED))
    {
        essence.rewind();
        EXPECT_EQ(play(essence).places, inStep.places) << "in file order";
        seekEverywhere(essence, inStep.places);
    }
    return inStep.units;
}

// Why a sample can't be played; empty when it can.
std::string refusalOf(std::string const & name)
{
    static std::map<std::string, std::string> const REFUSALS = {
        {"F044", "!(masterEditPeriod_ == 0): Package does not have valid Essence Tracks."},
        {"F080", "bodySIDPartition != 0: Unable to find partition for the bodySID specified."},
        {"F164", "header != 0: No header partition found"},
        {"F255", "clip != 0: Package contains a invalid clip in the track."},
        {"F281", "seeker_ -> trackNumberExists (trackNumberValue): Track Number not found in this content Storage."},
    };
    auto const refusal = REFUSALS.find(name.substr(0, 4));
    return refusal != REFUSALS.end() ? refusal->second : std::string();
}

TEST(PlayedFiles, OfManyMakers)
{
    VANTRY_NEEDS_SAMPLES();
    std::set<std::string> empty;
    for (std::filesystem::path const & path : samples())
    {
        SCOPED_TRACE(path);
        std::string const name = path.filename();
        std::string refusal;
        try
        {
            if (playAndSeek(path) == 0)
                empty.insert(name.substr(0, 4));
        }
        catch (Exceptions::BaseException const & failure)
        {
            refusal = Platform::wstringToString(failure.message()).c_str();
        }
        EXPECT_EQ(refusal, refusalOf(name));
    }
    EXPECT_EQ(empty, (std::set<std::string>{"F068", "F072"}));
}

TEST(PlayedFiles, OfFFmpeg)
{
    VANTRY_NEEDS_FFMPEG();
    for (std::string const & arguments : ffmpegKinds())
    {
        SCOPED_TRACE(arguments);
        FFmpegFile const file(arguments);
        EXPECT_GT(playAndSeek(file.path()), 0u);
    }
}

// The shorter a file, the less can be read.
TEST(PlayedFiles, CutOffAnywhere)
{
    VANTRY_NEEDS_FFMPEG();
    for (std::string const & arguments : ffmpegKinds())
    {
        SCOPED_TRACE(arguments);
        Bytes const whole = readFile(FFmpegFile(arguments).path());
        std::size_t before = 0;
        for (unsigned int percent = 1; percent <= 100; ++percent)
        {
            std::size_t units = 0;
            attempt([&] { units = play(PlayedFile(whole.first(whole.size() * percent / 100)).essence()).units; });
            EXPECT_GE(units, before) << percent;
            before = units;
        }
        EXPECT_GT(before, 0u);
    }
}

}}}
