#include "OPBuilders/OPAtomAggregator.h"

#include "Exceptions/Check.h"
#include "Exceptions/NotFound.h"
#include "Exceptions/OperationNotAllowed.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/FileDescriptor.h"
#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourceClip.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/Track.h"
#include "Metadata/Structural/TrackHelpers.h"
#include "OPBuilders/OPAtomBuilder.h"
#include "OPBuilders/PackagesOf.h"
#include "Types/Length.h"
#include "Types/UInt32.h"
#include "Types/UMID32.h"
#include "Types/UniversalLabel.h"

#include <algorithm>

namespace Vantry { namespace OPBuilders {

using namespace Metadata::Structural;

namespace {

ContentStorage const & contentStorageOf(Metadata::PartitionMetadata const & metadata)
{
    ContentStorage const * const contentStorage = findPreface(metadata).contentStorage();
    VANTRY_CHECK(contentStorage != 0, NotFound, "Preface has no ContentStorage");
    return *contentStorage;
}

MaterialPackage & firstMaterialPackage(ContentStorage const & storage)
{
    Templates::vector<MaterialPackage *> const packages = packagesOf<MaterialPackage>(storage);
    VANTRY_CHECK(!packages.empty (), NotFound, "OPAtomBuilder has no MaterialPackage");
    return *packages.front();
}

bool isPictureOrSound(Types::UniversalLabel const & dataDefinition)
{
    return dataDefinition == DataDefinitionULs::picture() || dataDefinition == DataDefinitionULs::audio();
}

// The first clip with a source, or null.
SourceClip * firstSourceClip(Sequence const & sequence)
{
    for (unsigned int i = 0; i < sequence.structuralComponentsCount(); ++i)
        if (SourceClip * const clip = dynamic_cast<SourceClip *>(sequence.structuralComponent(i)))
            return clip;
    return nullptr;
}

void putFirst(GenericPackage & package, Track & track)
{
    unsigned int place = 0;
    while (package.track(place) != &track)
        ++place;
    package.removeTrack(place);
    package.addTrack(0, &track);
}

void describe(SourcePackage const & package, Track const & track)
{
    FileDescriptor * const descriptor = dynamic_cast<FileDescriptor *>(package.descriptor());
    if (descriptor == nullptr)
        return;
    descriptor->linkedTrack(track.trackID());
    descriptor->containerDuration(track.sequence()->duration());
}

// A copy that a track of another file makes was changed last in this one.
void setGeneration(Track & track, Identification * identification)
{
    track.generation(identification);
    Sequence * const sequence = track.sequence();
    sequence->generation(identification);
    for (unsigned int i = 0; i < sequence->structuralComponentsCount(); ++i)
        if (StructuralComponent * const component = sequence->structuralComponent(i))
            component->generation(identification);
}

// One of the files.
class Member
{
public:
    explicit Member(OPAtomBuilder const & builder) :
        metadata_(builder.metadata().get()),
        storage_(&contentStorageOf(*metadata_)),
        material_(&firstMaterialPackage(*storage_))
    {
    }

    MaterialPackage & material() const { return *material_; }

    // The track of picture or sound that plays, or null.
    Track const * track() const { return track_; }

    // Has all packages know the essence by the number of the file.
    void number(unsigned int place)
    {
        Types::UInt32 const trackID(place);
        for (GenericPackage * package : packagesOf<GenericPackage>(*storage_))
            for (Track * track : tracksOf(*package))
                number(*package, *track, trackID);
    }

    // Adds a copy of the track of another file.
    void add(Track const & track, unsigned int place) const
    {
        Track & copy = dynamic_cast<Track &>(*track.clone(true, metadata_));
        setGeneration(copy, findPreface(*metadata_).generation());
        material_->addTrack(std::min(place, material_->tracksCount()), &copy);
    }

private:
    static Templates::vector<Track *> tracksOf(GenericPackage const & package)
    {
        Templates::vector<Track *> tracks;
        for (unsigned int i = 0; i < package.tracksCount(); ++i)
            if (Track * const track = package.track(i))
                tracks.push_back(track);
        return tracks;
    }

    void number(GenericPackage & package, Track & track, Types::UInt32 const & trackID)
    {
        Sequence const * const sequence = track.sequence();
        Types::UniversalLabel const * const definition = sequence != nullptr ? sequence->dataDefinition() : nullptr;
        if (definition == nullptr)
            return;

        if (isTimecodeDataDefinition(*definition))
        {
            Types::UInt32 const timecodeID(0);
            putFirst(package, track);
            track.trackID(&timecodeID);
        }
        else if (isPictureOrSound(*definition))
        {
            track.trackID(&trackID);
            if (SourcePackage const * const source = dynamic_cast<SourcePackage *>(&package))
                describe(*source, track);
            else if (dynamic_cast<MaterialPackage *>(&package) != nullptr)
                play(track, trackID);
        }
    }

    void play(Track & track, Types::UInt32 const & trackID)
    {
        track_ = &track;
        if (SourceClip * const clip = firstSourceClip(*track.sequence()))
            clip->sourceTrackID(&trackID);
    }

    Metadata::PartitionMetadata * metadata_;
    ContentStorage const * storage_;
    MaterialPackage * material_;
    Track const * track_ = nullptr;
};

}

OPAtomAggregator::OPAtomAggregator() = default;

OPAtomAggregator::~OPAtomAggregator() = default;

void OPAtomAggregator::addOPAtomBuilder(OPAtomBuilder * builder)
{
    opAtomBuilders_.push_back(builder);
}

void OPAtomAggregator::commit()
{
    VANTRY_CHECK(opAtomBuilders_.size () > 1, OperationNotAllowed, "Can only aggregate 2 or more OPAtomBuilder's.");

    Templates::vector<Member> members;
    for (OPAtomBuilder const * builder : opAtomBuilders_)
        members.emplace_back(*builder);

    auto const count = static_cast<unsigned int>(members.size());
    for (unsigned int n = 1; n < count; ++n)
        members[n].material().packageUID(members.front().material().packageUID());
    for (unsigned int n = 0; n < count; ++n)
        members[n].number(n);

    for (Member const & member : members)
        for (unsigned int other = 0; other < count; ++other)
            if (&member != &members[other] && members[other].track() != nullptr)
                member.add(*members[other].track(), other + 1);
}

}}
