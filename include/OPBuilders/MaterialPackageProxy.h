#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"

namespace Vantry { namespace OPBuilders {

class TrackProxy;

/// A material package, while it is made. It belongs to its builder, and so do
/// its tracks.
class VANTRY_EXPORT MaterialPackageProxy
{
public:
    VANTRY_CLASS_ALLOCATION

    MaterialPackageProxy() = default;
    MaterialPackageProxy(MaterialPackageProxy const &) = delete;
    MaterialPackageProxy & operator=(MaterialPackageProxy const &) = delete;
    virtual ~MaterialPackageProxy();

    /// Adds a track without clips. Tracks are numbered from 1.
    ///
    /// \param origin  where time 0 of the track lies, in its edit units
    /// \param rate    edit units per second; null for those of the first clip
    virtual TrackProxy * addTrack(Int64 origin, Templates::Rational<int> const * rate) = 0;

    /// Adds a track for each track of picture, sound or data in a package, with
    /// all of it as a clip. Other tracks are passed over.
    ///
    /// \param origin  of the new tracks
    /// \param package lent, as in TrackProxy
    /// \return the new tracks, in the order of the package
    /// \throws Exceptions::InvalidFormat, Exceptions::InvalidValue as
    ///         TrackProxy::addClip; the tracks up to then are there.
    virtual Templates::list<TrackProxy *> addSourcePackage(Int64 origin,
                                                           Metadata::Structural::GenericPackage & package) = 0;

    /// The set of the package; it belongs to the metadata.
    virtual Metadata::Structural::MaterialPackage & materialPackage() = 0;
};

}}
