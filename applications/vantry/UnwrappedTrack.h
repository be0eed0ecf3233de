#pragma once

#include "EssenceOutput.h"
#include "EssenceTracks.h"

#include <memory>

namespace Vantry { namespace Application {

class BlockSource;

/// A track on its way to its output.
class UnwrappedTrack
{
public:
    UnwrappedTrack(EssenceTrack const & track, std::unique_ptr<EssenceOutput> output) :
        track_(track), output_(std::move(output))
    {
    }

    EssenceTrack const & track() const { return track_; }
    EssenceOutput & output() const { return *output_; }

    /// Takes bytes from where the source stands as (part of) an element.
    void take(BlockSource & source, UInt64 size);

    /// Counts an edit unit that the track has essence in; the same one again
    /// isn't counted.
    void countEditUnit(Int64 editUnit);

    void countEditUnits(UInt64 howMany) { editUnits_ += howMany; }
    UInt64 editUnits() const { return editUnits_; }

    /// Whether it got no essence at all.
    bool isEmpty() const { return isEmpty_; }

private:
    EssenceTrack track_;
    std::unique_ptr<EssenceOutput> output_;
    UInt64 editUnits_ = 0;
    Int64 lastEditUnit_ = -1;
    bool isEmpty_ = true;
};

}}
