#pragma once

#include "OPBuilders/Durations.h"
#include "OPBuilders/ProxyBase.h"
#include "OPBuilders/TrackProxy.h"
#include "Templates/Containers.h"
#include "Types/UniversalLabel.h"

#include <memory>

namespace Vantry { namespace OPBuilders {

class ClipData;

/// Makes the sets of a track, and knows its clips.
class TrackProxy_impl : public TrackProxy, private ProxyBase
{
public:
    /// The arguments are those of MaterialPackageProxy::addTrack. The set of
    /// the track isn't in a package yet.
    TrackProxy_impl(ProxyBase const & base, unsigned int trackID, Int64 origin, Rate const * rate);
    ~TrackProxy_impl() override;

    void addSubClip(Metadata::Structural::SourcePackage & package, Metadata::Structural::Track & track, Int64 start,
                    Int64 length) override;
    void addClip(Metadata::Structural::SourcePackage & package, Metadata::Structural::Track & track) override;
    Metadata::Structural::TimelineTrack & track() override { return *track_; }

    /// `addClip` for a package of any kind.
    void addWholeTrack(Metadata::Structural::GenericPackage & package, Metadata::Structural::Track & track);

    /// Brings the sets up to date, unless there is no clip.
    void update();

    /// What the first clip is a clip of; null when there is none.
    Metadata::Structural::GenericPackage const * firstSource() const;

    Int64 origin() const { return origin_; }

    /// How long the clips are together, as of the last update.
    Seconds const & seconds() const { return seconds_; }

private:
    Metadata::Structural::TimelineTrack & accept(Metadata::Structural::Track & track);
    void add(std::unique_ptr<ClipData> clip);

    Int64 const origin_;
    Metadata::Structural::Sequence * sequence_;
    Metadata::Structural::TimelineTrack * track_;
    Rate rate_;
    Types::UniversalLabel dataDefinition_;
    Seconds seconds_;
    Templates::vector<std::unique_ptr<ClipData>> clips_;
};

}}
