#pragma once

#include "Platform/Integers.h"

#include <optional>

namespace Vantry {
namespace Metadata { namespace Structural {
class StructuralComponent;
class Track;
}}
namespace Types {
class Position;
class Rational;
}

namespace Application {

/// What happens along a track at first; null when nothing does. The track may
/// do without a sequence.
Metadata::Structural::StructuralComponent const * firstComponentOf(Metadata::Structural::Track const & track);

/// What a track is about, of whatever class it is.
struct TrackFacts
{
    /// Of no track.
    TrackFacts();

    explicit TrackFacts(Metadata::Structural::Track const & track);

    bool isEssence() const;

    /// "picture", "sound", "data", "timecode", "descriptive" or "other".
    char const * kind;

    /// Null where the track has none.
    Types::Rational const * editRate = nullptr;
    Types::Position const * origin = nullptr;

    /// In edit units; none when it isn't known.
    std::optional<UInt64> duration;
};

}
}
