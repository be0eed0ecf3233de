#include "GenericContainer/TimecodeHandler.h"

#include "Exceptions/InvalidValue.h"
#include "GenericContainer/EditUnit.h"
#include "GenericContainer/TimecodeInfo.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/CreateSet.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/TimecodeComponent.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Metadata/Structural/TrackHelpers.h"
#include "Types/Boolean.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/Rational.h"
#include "Types/UInt16.h"
#include "Types/UniversalLabel.h"
#include "Utils/RoundedUp.h"
#include "Utils/Time.h"

namespace Vantry { namespace GenericContainer {

namespace {

using Rate = Templates::Rational<int>;
using Seconds = Templates::Rational<Int64>;
using Utils::TimeCode;

// The references of a sequence to its components fit a local set of 64 KB.
unsigned int const MOST_COMPONENTS = 4095;

Types::Length const UNKNOWN_LENGTH(-1);

Seconds secondsOf(Rate const & value)
{
    return {value.numerator(), value.denominator()};
}

TimeCode later(TimeCode const & timeCode, Int64 frames)
{
    return {timeCode.frameRate(), static_cast<Int64>(timeCode.toFrameCounter()) + frames, timeCode.dropFrame()};
}

bool isTwoFramesBehind(TimeCode timeCode, TimeCode const & expected)
{
    ++timeCode;
    ++timeCode;
    return timeCode == expected;
}

// What a rate asks of time code.
struct Counting
{
    explicit Counting(Rate const & rate) :
        frameRate((rate.denominator() + 2 * Int64(rate.numerator())) / (2 * Int64(rate.denominator()))),
        dropFrame(rate.denominator() == 1001),
        isPossible(frameRate >= 1 && frameRate <= 255 && (dropFrame || rate.denominator() == 1))
    {
    }

    // Undefined when there is none.
    TimeCode defaultStart(TimecodeInfo const & info) const
    {
        if (!info.hasDefaultStart)
            return TimeCode();
        return {static_cast<unsigned char>(frameRate),
                info.hours,
                info.minutes,
                info.seconds,
                info.frames,
                dropFrame,
                false};
    }

    TimeCode zero() const { return TimeCode(static_cast<unsigned char>(frameRate)); }

    Int64 frameRate;
    bool dropFrame;
    bool isPossible;
};

}

class TimecodeHandler::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Templates::SharedPtr<Metadata::PartitionMetadata> metadata, Metadata::Structural::SourcePackage * package,
         Rate const & rate, TimecodeInfo const & info) :
        metadata_(metadata), package_(package), info_(info), rate_(rate)
    {
    }

    void setUp(TimeCode timeCode, Rate const & rate, Rate const & duration)
    {
        Counting const counting(rate);
        if (!makesTrack() || !counting.isPossible)
            return;

        Int64 const origin = chooseStart(timeCode, counting);
        if (!timeCode.isDefined())
            return;

        restart(timeCode);
        createTrack(origin, rate, duration);
        createComponent(later(timeCode, Utils::Time::convertSecondsToEditUnit(precharge, rate)), duration);
    }

    void createTrack(Int64 origin, Rate const & rate, Rate const & duration)
    {
        if (!metadata_ || package_ == nullptr)
            return;

        rate_ = rate;
        track_ = Metadata::Structural::createTimelineTrack(
            *metadata_, *package_, Metadata::Structural::DataDefinitionULs::timecode12MInactive(), 0, 0, origin,
            {rate.numerator(), rate.denominator()}, Utils::Time::convertSecondsToEditUnit(duration, rate));
    }

    void check(EditUnit const & unit, Rate const & rate)
    {
        if (!makesTrack() || isConstant)
            return;

        if (track_ == nullptr)
            setUp(unit.timeCode, rate, -1);
        else if (!follows(unit.timeCode))
            startComponent(unit.timeCode);
        if (!isConstant)
            advance(unit.duration, rate);
    }

    void closeComponent()
    {
        if (component_ == nullptr)
            return;

        Int64 const editUnits = Utils::Time::convertSecondsToEditUnit(elapsed_, rate_);
        Types::Length const length(isConstant ? UNKNOWN_LENGTH : Types::Length(editUnits));
        component_->duration(&length);
        component_ = nullptr;
        if (!isConstant)
            editUnits_ += editUnits;
    }

    void setSequenceDuration()
    {
        if (track_ == nullptr)
            return;

        Int64 const shown = editUnits_ - Utils::Time::convertSecondsToEditUnit(precharge, rate_);
        Types::Length const length(isConstant ? UNKNOWN_LENGTH : Types::Length(shown));
        track_->sequence()->duration(&length);
    }

    Rate precharge;
    bool isConstant = false;

private:
    bool makesTrack() const { return info_.generateTimecodeTrack && metadata_ && package_ != nullptr; }

    // Replaces the time code of the first edit unit by the default where that
    // is wanted; without either, goes on counting from 0. Gives the origin of
    // the track.
    Int64 chooseStart(TimeCode & timeCode, Counting const & counting)
    {
        TimeCode const preset = counting.defaultStart(info_);
        if (preset.isDefined() && (info_.overridesEssence || !timeCode.isDefined()))
        {
            info_.suppressTimecodeDiscontinuities |= timeCode.isDefined();
            timeCode = preset;
            return 0;
        }

        if (timeCode.isDefined() && start_.isDefined())
        {
            Int64 const origin = -Int64(start_.frames());
            start_ = TimeCode();
            return origin;
        }
        if (!timeCode.isDefined() && !start_.isDefined())
            start_ = counting.zero();
        return 0;
    }

    // Whether a time code is the expected one, or needn't be, or can't be
    // followed any more.
    bool follows(TimeCode const & timeCode)
    {
        if (info_.suppressTimecodeDiscontinuities || !timeCode.isDefined() || !expected_.isDefined())
            return true;

        UInt64 const expected = expected_.toFrameCounter();
        UInt64 const count = timeCode.toFrameCounter();
        if (expected == count || expected == count + 1)
            return true;

        isConstant = isTwoFramesBehind(timeCode, expected_) ||
                     track_->sequence()->structuralComponentsCount() >= MOST_COMPONENTS;
        return isConstant;
    }

    void startComponent(TimeCode const & timeCode)
    {
        closeComponent();
        restart(timeCode);
        createComponent(timeCode, -1);
    }

    void restart(TimeCode const & timeCode)
    {
        expected_ = start_ = timeCode;
        elapsed_ = Seconds();
    }

    void advance(Rate const & duration, Rate const & rate)
    {
        if (!start_.isDefined())
            return;
        elapsed_ += secondsOf(duration);
        expected_ = later(start_, Utils::roundedUp(elapsed_ * secondsOf(rate)));
    }

    void createComponent(TimeCode const & start, Rate const & duration)
    {
        if (track_ == nullptr)
            return;

        using namespace Metadata::Structural;
        Types::Length const length(Utils::Time::convertSecondsToEditUnit(duration, rate_));
        Types::UInt16 const base(start.frameRate());
        Types::Position const startTimecode(static_cast<Int64>(start.toFrameCounter()));
        Types::Boolean const dropFrame(start.dropFrame());
        component_ = &createSet<TimecodeComponent>(*metadata_, StructuralMetadataKeys::timecodeComponent());
        component_->dataDefinition(&DataDefinitionULs::timecode12MInactive());
        component_->duration(&length);
        component_->roundedTimecodeBase(&base);
        component_->startTimecode(&startTimecode);
        component_->dropFrame(&dropFrame);

        Sequence & sequence = *track_->sequence();
        sequence.addStructuralComponent(sequence.structuralComponentsCount(), component_);
    }

    Templates::SharedPtr<Metadata::PartitionMetadata> metadata_;
    Metadata::Structural::SourcePackage * package_;
    TimecodeInfo info_;

    // Edit units of the container per second, then those of the track.
    Rate rate_;

    // Of the current component: its first time code, the seconds since then
    // and the time code that follows.
    TimeCode start_;
    Seconds elapsed_;
    TimeCode expected_;

    Metadata::Structural::TimelineTrack * track_ = nullptr;
    Metadata::Structural::TimecodeComponent * component_ = nullptr;

    // Of the closed components.
    Int64 editUnits_ = 0;
};

TimecodeHandler::TimecodeHandler(Templates::SharedPtr<Metadata::PartitionMetadata> metadata,
                                 Metadata::Structural::SourcePackage * sourcePackage, Rate const & rate,
                                 TimecodeInfo const & info) :
    impl_(new Impl(metadata, sourcePackage, rate, info))
{
}

TimecodeHandler::~TimecodeHandler()
{
    delete impl_;
}

void TimecodeHandler::precharge(Rate const & precharge)
{
    impl_->precharge = precharge;
}

void TimecodeHandler::setupTimecodeTrack(TimeCode timeCode, Rate const & rate, Rate const & duration)
{
    impl_->setUp(timeCode, rate, duration);
}

void TimecodeHandler::createTimecodeTrack(Int64 origin, Rate const & rate, Rate const & duration)
{
    impl_->createTrack(origin, rate, duration);
}

void TimecodeHandler::checkTimeCode(EditUnit const & editUnit, Rate const & rate)
{
    impl_->check(editUnit, rate);
}

void TimecodeHandler::updateTimecodeComponent()
{
    impl_->closeComponent();
}

void TimecodeHandler::updateTimecodeSequenceDuration()
{
    impl_->setSequenceDuration();
}

bool TimecodeHandler::constantTimecode() const
{
    return impl_->isConstant;
}

}}
