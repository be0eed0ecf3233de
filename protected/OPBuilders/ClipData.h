#pragma once

#include "OPBuilders/Durations.h"
#include "OPBuilders/ProxyBase.h"
#include "Platform/Allocation.h"

namespace Vantry { namespace OPBuilders {

/// A clip in a track of a material package, and what it is a clip of: all of a
/// track of another package.
class ClipData : protected ProxyBase
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \param package  what it is a clip of; lent, as is the track in it
    /// \param rate     edit units per second of the material track
    ClipData(ProxyBase const & base, Metadata::Structural::GenericPackage & package,
             Metadata::Structural::TimelineTrack & track, Rate const & rate);
    ClipData(ClipData const &) = delete;
    ClipData & operator=(ClipData const &) = delete;

    /// Makes the set of the clip, once, and gives it.
    ///
    /// \throws Exceptions::InvalidFormat for a source track that has no
    ///         sequence with a data definition.
    virtual Metadata::Structural::SourceClip & create();

    /// Sets how long the clip is, in edit units of the material track;
    /// otherwise it is as long as the source track.
    virtual void setDuration(Int64 length);

    virtual ~ClipData();

    /// Sets start and duration in the set, as the source track has them now.
    ///
    /// \throws Exceptions::InvalidFormat as `create`, and for a source track
    ///         without edit rate or with other parts than source clips.
    virtual void update();

    Metadata::Structural::GenericPackage & package() const { return package_; }

    /// How long the clip is, as of the last update.
    Seconds const & seconds() const { return seconds_; }

protected:
    void start(Int64 editUnits);

private:
    Metadata::Structural::Sequence & sourceSequence() const;
    Seconds secondsOfSource() const;

    Metadata::Structural::GenericPackage & package_;
    Metadata::Structural::TimelineTrack & track_;
    Rate const rate_;
    bool isPart_ = false;
    Seconds seconds_ = unknownSeconds();
    Metadata::Structural::SourceClip * clip_ = nullptr;
};

/// A clip of a part of a track.
class SubClipData : public ClipData
{
public:
    /// \param start   where the part begins, in edit units of the material
    ///                track
    /// \param length  how long it is, in these
    SubClipData(ProxyBase const & base, Metadata::Structural::GenericPackage & package,
                Metadata::Structural::TimelineTrack & track, Rate const & rate, Int64 start, Int64 length);
    ~SubClipData() override;

    void update() override;

private:
    Int64 const start_;
};

}}
