#include "GenericContainer/ItemReader.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidState.h"
#include "GenericContainer/AnalyzerEntry.h"
#include "GenericContainer/EditUnit.h"
#include "GenericContainer/NullEssenceProvider.h"

#include <algorithm>

namespace Vantry { namespace GenericContainer {

namespace {

// An analyzer may have parts that take no time, but it has to get on.
unsigned int const MAXIMUM_UNITS_WITHOUT_TIME = 100000;

Templates::Rational<Int64> widened(Templates::Rational<int> const & value)
{
    return {value.numerator(), value.denominator()};
}

// A provider finds the duration set, and may say that it gave another one.
void giveNullEssence(EssenceAnalyzer & analyzer, Templates::Rational<int> const & duration, EditUnit & unit)
{
    unit.duration = duration;
    if (auto * const provider = dynamic_cast<NullEssenceProvider *>(&analyzer))
        provider->fillNullEssence(unit);
    unit.valid = true;
}

// The first edit unit tells the time code, the last how it is shown.
void append(EditUnit & unit, EditUnit & item)
{
    if (item.valid)
    {
        item.duration += unit.duration;
    }
    else
    {
        item.duration = unit.duration;
        item.timeCode = unit.timeCode;
        item.valid = true;
    }
    item.data.push_back(unit.data);
    item.count += unit.count;
    item.temporalOffset = unit.temporalOffset;
    item.flags = unit.flags;
}

}

ItemReader::ItemReader(Templates::Rational<int> const & packageRate, Templates::Rational<int> const & preCharge,
                       bool fillsUp) :
    packageDuration_(packageRate.denominator(), packageRate.numerator()), preCharge_(preCharge), fillsUp_(fillsUp)
{
}

void ItemReader::read(AnalyzerEntry & entry, Templates::Rational<Int64> const & end, EditUnit & item) const
{
    bool const isShifted = entry.temporalOffset != 0;
    Templates::Rational<Int64> time = isShifted ? entry.position + entry.temporalOffset : entry.position;
    unsigned int unitsWithoutTime = 0;
    while (time < end)
    {
        EditUnit unit;
        fetch(entry, unit, time);
        if (!unit.valid)
            return;

        unitsWithoutTime = unit.duration > 0 ? 0 : unitsWithoutTime + 1;
        VANTRY_CHECK(unitsWithoutTime < MAXIMUM_UNITS_WITHOUT_TIME, InvalidState,
                     "An analyzer gives edit units that take no time");
        entry.position += widened(unit.duration);
        time = isShifted ? entry.position + entry.temporalOffset : entry.position;
        append(unit, item);
    }
}

void ItemReader::fetch(AnalyzerEntry & entry, EditUnit & unit, Templates::Rational<Int64> const & time) const
{
    EssenceAnalyzer & analyzer = *entry.analyzer;
    Templates::Rational<int> const delay = preCharge_ - analyzer.getPreChargeDuration();
    if (delay > 0 && time < widened(delay))
        return giveNullEssence(analyzer, std::min(delay, packageDuration_), unit);

    analyzer.nextEditUnit(unit);
    if (unit.valid || !fillsUp_)
        return;
    giveNullEssence(analyzer, packageDuration_, unit);
    unit.duration = packageDuration_;
}

}}
