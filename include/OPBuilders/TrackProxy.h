#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace OPBuilders {

/// A track of a material package, while it is made. It belongs to the builder
/// of the package.
///
/// Clips follow each other in the order in which they are added. How long they
/// are is found out when the builder updates the metadata. The packages and
/// tracks that they refer to are lent: they stay in the metadata as long as the
/// builder does.
class VANTRY_EXPORT TrackProxy
{
public:
    VANTRY_CLASS_ALLOCATION

    TrackProxy() = default;
    TrackProxy(TrackProxy const &) = delete;
    TrackProxy & operator=(TrackProxy const &) = delete;
    virtual ~TrackProxy();

    /// Adds a part of a source track. Taken from its start to its end it is
    /// as `addClip`.
    ///
    /// \param start   where it begins, in edit units of the material track
    /// \param length  how long it is, in edit units of the material track
    /// \throws Exceptions::InvalidFormat, Exceptions::InvalidValue as `addClip`.
    virtual void addSubClip(Metadata::Structural::SourcePackage & package, Metadata::Structural::Track & track,
                            Int64 start, Int64 length) = 0;

    /// Adds a whole source track. The first gives the material track its data
    /// definition and, where none was given, its edit rate.
    ///
    /// \throws Exceptions::InvalidFormat for a track that isn't a timeline
    ///         track with edit rate and data definition, or that has another
    ///         data definition than those before; nothing is added.
    /// \throws Exceptions::InvalidValue for an edit rate with a denominator of
    ///         0, when the material track takes it; nothing is added.
    virtual void addClip(Metadata::Structural::SourcePackage & package, Metadata::Structural::Track & track) = 0;

    /// The set of the track; it belongs to the metadata.
    virtual Metadata::Structural::TimelineTrack & track() = 0;
};

}}
