#pragma once

#include "OPBuilders/MaterialPackageProxy.h"
#include "OPBuilders/ProxyBase.h"
#include "OPBuilders/TimecodeTrack.h"

#include <memory>

namespace Vantry {
namespace Types {
class Timestamp;
class UMID32;
}

namespace OPBuilders {

class TrackProxy_impl;

/// Makes the set of a material package with a time code track, and knows its
/// other tracks.
class MaterialPackageProxy_impl : public MaterialPackageProxy, private ProxyBase
{
public:
    /// \param contentStorage  gets the package
    /// \param date            when the package is made
    /// \param id              null for a new identifier
    MaterialPackageProxy_impl(ProxyBase const & base, Metadata::Structural::ContentStorage & contentStorage,
                              Types::Timestamp const & date, Utils::TimeCode const & start, Rate const & rate,
                              Types::UMID32 const * id);
    ~MaterialPackageProxy_impl() override;

    TrackProxy * addTrack(Int64 origin, Rate const * rate) override;
    Templates::list<TrackProxy *> addSourcePackage(Int64 origin,
                                                   Metadata::Structural::GenericPackage & package) override;
    Metadata::Structural::MaterialPackage & materialPackage() override { return *package_; }

    /// Brings the sets up to date.
    ///
    /// \throws Exceptions::InvalidFormat as ClipData::update.
    void update();

    /// Whether tracks begin with clips of more than one package.
    bool hasSeveralSources() const;

private:
    TrackProxy_impl & createTrack(Int64 origin, Rate const * rate);
    Seconds seconds() const;

    TimecodeTrack timecode_;
    Metadata::Structural::MaterialPackage * package_;
    Templates::vector<std::unique_ptr<TrackProxy_impl>> tracks_;
};

}
}
