#include "WrappedAtoms.h"

#include "Metadata/Structural/FileDescriptor.h"
#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourceClip.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "OPBuilders/OPAtomAggregator.h"
#include "Types/Length.h"
#include "Types/UInt32.h"
#include "WrappedPackages.h"

namespace Vantry { namespace Application {

using namespace Metadata::Structural;

namespace {

StructuralComponent & firstComponent(Track const & track)
{
    return *track.sequence()->structuralComponent(0);
}

}

void WrappedAtoms::aggregate() const
{
    if (files_.size() < 2)
        return;

    OPBuilders::OPAtomAggregator aggregator;
    unsigned int place = 0;
    for (auto const & file : files_)
    {
        aggregator.addOPAtomBuilder(file->builder().atom());
        file->place(place++);
    }
    aggregator.commit();
    for (auto const & file : files_)
    {
        number(*file);
        file->builder().update();
    }
}

// The n-th file's track has the number n so far, from 0, and the time code
// track 0 too. Numbers from 1 leave no doubt.
void WrappedAtoms::number(WrappedFile & file) const
{
    MaterialPackage & material = file.materialPackage();
    numberTracks(material);
    for (unsigned int i = 1; i < material.tracksCount(); ++i)
        dynamic_cast<SourceClip &>(firstComponent(*material.track(i))).sourceTrackID(material.track(i)->trackID());

    SourcePackage & source = file.sourcePackage();
    Types::UInt32 const trackID(file.trackID(0));
    essenceTrack(source).trackID(&trackID);
    dynamic_cast<FileDescriptor &>(*source.descriptor()).linkedTrack(&trackID);
    numberTimeCodeTrack(source);
}

void WrappedAtoms::shareDurations() const
{
    for (auto const & from : files_)
        for (auto const & to : files_)
        {
            unsigned int const index = from->place() + 1;
            Track const & known = *from->materialPackage().track(index);
            Track const & other = *to->materialPackage().track(index);
            if (&known == &other)
                continue;
            other.sequence()->duration(known.sequence()->duration());
            firstComponent(other).duration(firstComponent(known).duration());
        }
}

}}
