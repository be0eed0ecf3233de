#include "OPBuilders/MaterialPackageProxy_impl.h"

#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Metadata/Structural/TrackHelpers.h"
#include "OPBuilders/TrackProxy_impl.h"
#include "Types/Factories/UID.h"
#include "Types/Timestamp.h"
#include "Types/UMID32.h"

#include <algorithm>

namespace Vantry { namespace OPBuilders {

using namespace Metadata::Structural;
using Types::Factories::UID;

namespace {

Types::UMID32 newPackageUID()
{
    return UID::generateBasicUMID(UID::MATERIAL_MIXED, UID::MNMI_SMPTE, UID::INSTANCE_RANDOM, UID::TIME_SNAP_VERSION_1,
                                  0);
}

// Of timeline tracks and others.
Templates::vector<Track *> essenceTracks(GenericPackage const & package)
{
    Templates::vector<Track *> tracks;
    for (unsigned int i = 0; i < package.tracksCount(); ++i)
        if (isEssenceTrack(package.track(i)))
            tracks.push_back(package.track(i));
    return tracks;
}

bool isSamePackage(GenericPackage const & left, GenericPackage const & right)
{
    Types::UMID32 const * const leftUID = left.packageUID();
    Types::UMID32 const * const rightUID = right.packageUID();
    return leftUID != nullptr && rightUID != nullptr ? *leftUID == *rightUID : leftUID == rightUID;
}

}

MaterialPackageProxy_impl::MaterialPackageProxy_impl(ProxyBase const & base, ContentStorage & contentStorage,
                                                     Types::Timestamp const & date, Utils::TimeCode const & start,
                                                     Rate const & rate, Types::UMID32 const * id) :
    ProxyBase(base),
    timecode_(base, start, rate),
    package_(&create<MaterialPackage>(StructuralMetadataKeys::materialPackage()))
{
    Types::UMID32 const packageUID = id != nullptr ? *id : newPackageUID();
    package_->packageUID(&packageUID);
    package_->packageCreationDate(&date);
    package_->packageModifiedDate(&date);
    package_->addTrack(package_->tracksCount(), &timecode_.track());
    contentStorage.appendPackage(package_);
}

MaterialPackageProxy_impl::~MaterialPackageProxy_impl() = default;

TrackProxy * MaterialPackageProxy_impl::addTrack(Int64 origin, Rate const * rate)
{
    return &createTrack(origin, rate);
}

Templates::list<TrackProxy *> MaterialPackageProxy_impl::addSourcePackage(Int64 origin, GenericPackage & package)
{
    Templates::list<TrackProxy *> added;
    for (Track * track : essenceTracks(package))
    {
        TrackProxy_impl & proxy = createTrack(origin, nullptr);
        proxy.addWholeTrack(package, *track);
        added.push_back(&proxy);
    }
    return added;
}

void MaterialPackageProxy_impl::update()
{
    for (std::unique_ptr<TrackProxy_impl> const & track : tracks_)
        track->update();
    timecode_.duration(seconds());
}

bool MaterialPackageProxy_impl::hasSeveralSources() const
{
    GenericPackage const * first = nullptr;
    for (std::unique_ptr<TrackProxy_impl> const & track : tracks_)
    {
        GenericPackage const * const source = track->firstSource();
        if (first == nullptr)
            first = source;
        else if (source != nullptr && !isSamePackage(*first, *source))
            return true;
    }
    return false;
}

// Tracks stand in the order of their numbers, ahead of the time code track.
TrackProxy_impl & MaterialPackageProxy_impl::createTrack(Int64 origin, Rate const * rate)
{
    auto const index = static_cast<unsigned int>(tracks_.size());
    tracks_.push_back(std::make_unique<TrackProxy_impl>(base(), index + 1, origin, rate));
    package_->addTrack(index, &tracks_.back()->track());
    return *tracks_.back();
}

// From the start of the first track to the end of the last. Origins count as
// seconds here, whatever the edit rate: so it has always been, and most of them
// are 0.
Seconds MaterialPackageProxy_impl::seconds() const
{
    if (tracks_.empty())
        return unknownSeconds();

    Seconds start(tracks_.front()->origin());
    Seconds end = start;
    for (std::unique_ptr<TrackProxy_impl> const & track : tracks_)
    {
        if (!isKnown(track->seconds()))
            return unknownSeconds();
        Seconds const origin(track->origin());
        start = std::min(start, origin);
        end = std::max(end, origin + track->seconds());
    }
    return end - start;
}

}}
