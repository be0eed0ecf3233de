#include "GenericContainer/TimecodeHandler.h"

#include "GenericContainer/EditUnit.h"
#include "GenericContainer/TimecodeInfo.h"
#include "support/Failure.h"
#include "support/StructuralMetadata.h"

namespace Vantry { namespace GenericContainer { namespace {

using Metadata::Structural::TimecodeComponent;
using Metadata::Structural::TimelineTrack;
using Rate = Templates::Rational<int>;

int const NONE = -1; // an edit unit without time code

// Writes a container of edit units with these time codes, in frames since
// midnight.
class Writing
{
public:
    Writing(Rate const & rate, TimecodeInfo const & info) : rate_(rate), handler_(shared(), &package_, rate, info) {}

    void write(std::vector<int> const & frames, int precharge = 0)
    {
        handler_.precharge(Rate(precharge) / rate_);
        handler_.setupTimecodeTrack(timeCode(frames.front()), rate_, -1);
        for (int frame : frames)
        {
            EditUnit unit;
            unit.duration = Rate(1) / rate_;
            unit.timeCode = timeCode(frame);
            handler_.checkTimeCode(unit, rate_);
        }
        handler_.updateTimecodeComponent();
        handler_.updateTimecodeSequenceDuration();
    }

    // "origin duration:" of the track, then "start+length" of its components,
    // and "d" for drop frame.
    std::string told() const
    {
        std::string text;
        for (unsigned int i = 0; i < package_.tracksCount(); ++i)
        {
            auto const & track = dynamic_cast<TimelineTrack const &>(*package_.track(i));
            text += std::to_string(track.origin()->value()) + " " +
                    std::to_string(track.sequence()->duration()->value()) + ":";
            EXPECT_EQ(*track.editRate(), Types::Rational(rate_.numerator(), rate_.denominator()));
            for (unsigned int j = 0; j < track.sequence()->structuralComponentsCount(); ++j)
                text += told(dynamic_cast<TimecodeComponent const &>(*track.sequence()->structuralComponent(j)));
        }
        return text + (handler_.constantTimecode() ? " constant" : "");
    }

private:
    Templates::SharedPtr<Metadata::PartitionMetadata> shared()
    {
        return Templates::SharedPtr<Metadata::PartitionMetadata>(&*metadata_, false);
    }

    unsigned char frameRate() const
    {
        return static_cast<unsigned char>((rate_.numerator() + rate_.denominator() - 1) / rate_.denominator());
    }

    Utils::TimeCode timeCode(int frame) const
    {
        return frame == NONE ? Utils::TimeCode() : Utils::TimeCode(frameRate(), frame, rate_.denominator() == 1001);
    }

    std::string told(TimecodeComponent const & component) const
    {
        EXPECT_EQ(component.roundedTimecodeBase()->value(), frameRate());
        return " " + std::to_string(component.startTimecode()->value()) + "+" +
               std::to_string(component.duration()->value()) + (component.dropFrame()->value() ? "d" : "");
    }

    Tests::StructuralMetadata metadata_;
    Metadata::Structural::SourcePackage & package_ = metadata_.make<Metadata::Structural::SourcePackage>();
    Rate rate_;
    TimecodeHandler handler_;
};

TimecodeInfo startAt(unsigned char minutes, unsigned char frames, bool overridesEssence)
{
    TimecodeInfo info;
    info.hasDefaultStart = true;
    info.minutes = minutes;
    info.frames = frames;
    info.overridesEssence = overridesEssence;
    return info;
}

TEST(TimecodeHandler, MakesAComponentForEachStretch)
{
    TimecodeInfo suppressing, withoutTrack;
    suppressing.suppressTimecodeDiscontinuities = true;
    withoutTrack.generateTimecodeTrack = false;
    Rate const ntsc(30000, 1001);
    std::tuple<char const *, Rate, TimecodeInfo, std::vector<int>, char const *> const cases[] = {
        {"a run", 25, {}, {10, 11, 12, 13}, "0 4: 10+4"},
        {"over midnight", 25, {}, {2159998, 2159999, 0, 1}, "0 4: 2159998+4"},
        {"jumps", 25, {}, {10, 11, 20, 21, 22, 5}, "0 6: 10+2 20+3 5+1"},
        {"a frame twice, then one left out", 25, {}, {10, 11, 11, 12, 15}, "0 5: 10+4 15+1"},
        {"a gap in the time code", 25, {}, {10, NONE, NONE, 13}, "0 4: 10+4"},
        {"two frames behind", 25, {}, {10, 11, 12, 11, 40}, "0 -1: 10+-1 constant"},
        {"jumps that don't count", 25, suppressing, {10, 11, 20, 5}, "0 4: 10+4"},
        {"time code that comes late", 25, {}, {NONE, NONE, 30, 31}, "0 2: 30+2"},
        {"no time code", 25, {}, {NONE, NONE}, ""},
        {"no track wanted", 25, withoutTrack, {10, 11}, ""},
        {"a default", 25, startAt(0, 7, false), {NONE, NONE, 30}, "0 3: 7+2 30+1"},
        {"a default beside time code", 25, startAt(0, 7, false), {10, 11}, "0 2: 10+2"},
        {"a default that wins", 25, startAt(0, 7, true), {10, 11, 90}, "0 3: 7+3"},
        {"dropped frames", ntsc, startAt(1, 2, false), {NONE, NONE}, "0 2: 1800+2d"},
        {"drop frame", ntsc, {}, {1799, 1800, 1801}, "0 3: 1799+3d"},
        {"59.94 Hz", {60000, 1001}, {}, {9, 10, 20}, "0 3: 9+2d 20+1d"},
        {"no rounded rate", {2997, 100}, {}, {10, 11}, ""},
        {"too high a rate", 256, startAt(0, 0, true), {NONE, NONE}, ""},
    };
    for (auto const & [name, rate, info, frames, expected] : cases)
    {
        SCOPED_TRACE(name);
        Writing writing(rate, info);
        writing.write(frames);
        EXPECT_EQ(writing.told(), expected);
    }

    EXPECT_FAILURE(InvalidValue, "Invalid value of 00:01:00:00 for 30 fps drop frame timecode",
                   Writing(ntsc, startAt(1, 0, false)).write({10}));
}

TEST(TimecodeHandler, CountsPrechargeAheadOfTheTrack)
{
    Writing writing(25, {});
    writing.write({10, 11, 12, 13, 14, 15}, 2);
    EXPECT_EQ(writing.told(), "0 4: 12+6");
}

TEST(TimecodeHandler, GivesUpWhereJumpsAreTooMany)
{
    std::vector<int> frames;
    while (frames.size() < 4095)
        frames.push_back(static_cast<int>(10 * frames.size()));
    for (char const * expected : {"0 4095: 0+1 10", "0 -1: 0+1 10+1"})
    {
        Writing writing(25, {});
        writing.write(frames);
        EXPECT_EQ(writing.told().substr(0, 14), expected);
        frames.push_back(0);
    }
}

}}}
