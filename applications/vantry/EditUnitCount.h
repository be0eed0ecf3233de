#pragma once

#include "KLV/Key.h"
#include "Platform/Integers.h"

#include <optional>

namespace Vantry {
namespace DataIO {
class RandomAccessDataSource;
}

namespace Application {

class EssenceStream;
class StreamIndex;
class Warnings;

/// How essence lies in its container.
enum class Wrapping
{
    FRAME,
    CLIP,
    OTHER
};

/// The first packet of a stream, which tells how that is wrapped.
struct FirstPacket
{
    KLV::Key key;
    UInt64 valueStart;  // in the stream
    UInt64 valueLength; // as claimed
    UInt64 valueThere;

    /// Whether it takes all of the stream, but for fill.
    bool isAlone;

    /// \return none when the stream has no packet
    static std::optional<FirstPacket> find(DataIO::RandomAccessDataSource & file, EssenceStream const & stream);
};

/// Counts the edit units of a clip by its index.
///
/// \return none without an index
std::optional<UInt64> countInClip(FirstPacket const & clip, StreamIndex const & index);

/// Counts the edit units of a frame wrapped stream that are whole: by the
/// index up to the last one that begins in the file, from there by its packets.
/// Without an index, or with one that leads astray, by all packets.
///
/// \param tracks  elements that an edit unit has at least
UInt64 countInFrames(DataIO::RandomAccessDataSource & file, EssenceStream const & stream, StreamIndex const & index,
                     UInt64 tracks, Warnings & warnings);

}
}
