#pragma once

#include "ContainerSurvey.h"
#include "EssenceTracks.h"
#include "UnwrappedTrack.h"

#include <memory>
#include <optional>
#include <vector>

namespace Vantry {
namespace KLV {
class Packet;
}

namespace Application {

class BlockSource;

/// Which edit units are wanted of a container, in the order in which they are
/// stored.
struct EditUnitRange
{
    Int64 begin = 0;
    Int64 end = 0; // behind the last
};

/// Takes the essence of a container to its outputs while a walk goes over the
/// file.
class ContainerUnwrap
{
public:
    using Tracks = std::vector<std::unique_ptr<UnwrappedTrack>>;

    virtual ~ContainerUnwrap() = default;

    bool isIn(unsigned bodySID) const { return bodySID == bodySID_; }

    /// Takes an element, whose value the source stands before.
    virtual void take(KLV::Packet const & packet, BlockSource & source) = 0;

    /// Whether it has all that is wanted.
    bool isDone() const { return isDone_; }

    /// Counts what has come; nothing more will.
    virtual void end() {}

    /// Whether it is known how many edit units came.
    bool isCounted() const { return isCounted_; }

    /// How many edit units are wanted but not there; nothing where nobody says
    /// how many there should be, or how many came.
    ///
    /// \param isDamaged  tracks without any essence count
    std::optional<UInt64> missing(bool isDamaged) const;

    Tracks const & tracks() const { return tracks_; }

    /// The number of the first element that belongs to no track, wanted or not;
    /// nothing when none came.
    std::optional<unsigned> const & strayNumber() const { return strayNumber_; }

protected:
    ContainerUnwrap(EssenceContainer const & container, ContainerSurvey const & survey, EditUnitRange const & range,
                    Tracks tracks);

    /// The track that an element belongs to; null when it isn't wanted.
    UnwrappedTrack * trackOf(KLV::Packet const & packet);

    EditUnitRange const & range() const { return range_; }
    void isDone(bool isDone) { isDone_ = isDone; }
    void isCounted(bool isCounted) { isCounted_ = isCounted; }

private:
    unsigned bodySID_;
    std::optional<Int64> duration_;
    EditUnitRange range_;
    Tracks tracks_;
    std::vector<unsigned> trackNumbers_; // of all tracks, wanted or not
    std::optional<unsigned> strayNumber_;
    bool isOnlyTrack_; // whatever its number says
    bool isDone_ = false;
    bool isCounted_ = true;
};

/// Edit units follow each other, each with an element or several for a track.
class FrameUnwrap : public ContainerUnwrap
{
public:
    /// \param start      where in the file to begin
    /// \param editUnit   the edit unit there
    FrameUnwrap(EssenceContainer const & container, ContainerSurvey const & survey, EditUnitRange const & range,
                Tracks tracks, UInt64 start, Int64 editUnit);

    void take(KLV::Packet const & packet, BlockSource & source) override;

private:
    std::optional<KLV::Key> firstKey_;
    UInt64 start_;
    Int64 editUnit_;
};

/// All edit units lie in one element.
class ClipUnwrap : public ContainerUnwrap
{
public:
    ClipUnwrap(EssenceContainer const & container, ContainerSurvey survey, EditUnitRange const & range, Tracks tracks);

    void take(KLV::Packet const & packet, BlockSource & source) override;
    void end() override;

private:
    class Measure;

    void start(KLV::Packet const & packet);
    UInt64 wholeSamples(UInt64 end) const;
    void deliver(BlockSource & source, UInt64 begin, UInt64 end);

    ContainerSurvey survey_;
    std::shared_ptr<Measure> measure_;
    UnwrappedTrack * track_ = nullptr;
    UInt64 begin_ = 0; // what is wanted
    UInt64 end_ = 0;
    UInt64 position_ = 0; // in the clip, of what comes
    UInt64 reached_ = 0;  // in the clip, behind what came
};

}
}
