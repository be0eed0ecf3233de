#pragma once

#include "GenericContainer/EditUnit.h"
#include "GenericContainer/EssenceAnalyzer.h"
#include "support/Slices.h"
#include "support/StructuralMetadata.h"

namespace Vantry { namespace Tests {

/// What an edit unit was.
struct Unit
{
    Bytes data;
    UInt64 slices;
    Templates::Rational<int> duration;
    int flags;
    int temporalOffset;
};

/// All edit units that an analyzer gives.
inline std::vector<Unit> unitsOf(GenericContainer::EssenceAnalyzer & analyzer)
{
    std::vector<Unit> units;
    for (;;)
    {
        GenericContainer::EditUnit unit;
        if (!analyzer.nextEditUnit(unit))
            break;
        units.push_back({bytesOf(unit.data), unit.data.slice_count(), unit.duration, unit.flags, unit.temporalOffset});
    }
    return units;
}

inline Bytes bytesOf(std::vector<Unit> const & units)
{
    Bytes bytes;
    for (Unit const & unit : units)
        bytes += unit.data;
    return bytes;
}

/// A package that an analyzer describes its essence in.
class DescribedEssence
{
public:
    DescribedEssence() : preface_(metadata_.make<Metadata::Structural::Preface>())
    {
        package_ = &metadata_.make<Metadata::Structural::SourcePackage>();
    }

    bool describe(GenericContainer::EssenceAnalyzer & analyzer)
    {
        return analyzer.setMetadata(*metadata_, package_, 0x15010500, 7);
    }

    template <class Descriptor>
    Descriptor & descriptor()
    {
        return dynamic_cast<Descriptor &>(*package_->descriptor());
    }

    Metadata::Structural::TimelineTrack & track()
    {
        return dynamic_cast<Metadata::Structural::TimelineTrack &>(*package_->track(0));
    }

    Int64 duration() { return track().sequence()->duration()->value(); }

private:
    StructuralMetadata metadata_;
    Metadata::Structural::Preface & preface_;
    Metadata::Structural::SourcePackage * package_;
};

}}
