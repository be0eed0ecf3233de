#include "TrackFacts.h"

#include "ElementContent.h"
#include "Metadata/Structural/EventTrack.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/StructuralComponent.h"
#include "Metadata/Structural/StructuralMetadataULs.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Types/Length.h"
#include "Types/UniversalLabel.h"

#include <cstring>
#include <iterator>
#include <string_view>

namespace Vantry { namespace Application {

namespace {

namespace Structural = Metadata::Structural;

/// How a data definition goes on behind the registry version.
struct Definition
{
    unsigned char bytes[8];
    std::size_t size;
    char const * kind;
};

char const OTHER[] = "other";

std::size_t const FIRST_BYTE = 8;

// By RP 224, and identifiers from the time before it.

Definition const DEFINITIONS[] = {
    {{1, 3, 2, 2, 1}, 5, "picture"},
    {{1, 3, 2, 2, 2}, 5, "sound"},
    {{1, 3, 2, 2}, 4, "data"},
    {{1, 3, 2, 1, 0x10}, 5, "descriptive"},
    {{1, 3, 2, 1}, 4, "timecode"},
    {{0x6F, 0x3C, 0x8C, 0xE1, 0x6C, 0xEF, 0x11, 0xD2}, 8, "picture"},
    {{0x78, 0xE1, 0xEB, 0xE1, 0x6C, 0xEF, 0x11, 0xD2}, 8, "sound"},
    {{0x7F, 0x27, 0x5E, 0x81, 0x77, 0xE5, 0x11, 0xD2}, 8, "timecode"},
};

char const * kindOf(Types::UniversalLabel const * definition)
{
    if (definition != nullptr)
        for (Definition const & known : DEFINITIONS)
            if (std::memcmp(definition->rawBuffer() + FIRST_BYTE, known.bytes, known.size) == 0)
                return known.kind;
    return OTHER;
}

/// Takes the kind and the length of what happens along a track, a sequence or
/// a component without one.
template <class Segment>
void takeSegment(Segment const & segment, TrackFacts & facts)
{
    facts.kind = kindOf(segment.dataDefinition());
    if (segment.duration() != nullptr && segment.duration()->value() >= 0)
        facts.duration = static_cast<UInt64>(segment.duration()->value());
}

}

Structural::StructuralComponent const * firstComponentOf(Structural::Track const & track)
{
    Metadata::MetadataSet const * const segment = ownedBy(track, Structural::StructuralMetadataULs::sequence());
    auto const * const sequence = dynamic_cast<Structural::Sequence const *>(segment);
    if (sequence == nullptr)
        return dynamic_cast<Structural::StructuralComponent const *>(segment);
    return sequence->structuralComponentsCount() != 0 ? sequence->structuralComponent(0) : nullptr;
}

TrackFacts::TrackFacts() : kind(OTHER) {}

TrackFacts::TrackFacts(Structural::Track const & track) : TrackFacts()
{
    Structural::StructuralComponent const * const first = firstComponentOf(track);
    if (Structural::Sequence const * const sequence = track.sequence())
        takeSegment(*sequence, *this);
    else if (first != nullptr)
        takeSegment(*first, *this);
    if (kind == OTHER && first != nullptr)
        kind = kindOf(first->dataDefinition());

    if (auto const * const timeline = dynamic_cast<Structural::TimelineTrack const *>(&track))
    {
        editRate = timeline->editRate();
        origin = timeline->origin();
    }
    else if (auto const * const events = dynamic_cast<Structural::EventTrack const *>(&track))
    {
        editRate = events->eventEditRate();
        origin = events->eventOrigin();
    }
}

bool TrackFacts::isEssence() const
{
    std::string_view const name = kind;
    return name == "picture" || name == "sound" || name == "data";
}

}}
