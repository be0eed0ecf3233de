#pragma once

#include "IndexTables/IndexEntry.h"
#include "KLV/Packet.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Templates/auto_ptr.h"

namespace Vantry { namespace MXFIO {

/// What a track has in one read: an edit unit, a clip or a piece of a clip.
///
/// The payload are the bytes of the packet's value without the `headBytes` at
/// its start and the `tailBytes` at its end. They are yet to be read from the
/// value, and can be until the reader that gave the unit goes on.
struct ElementEditUnit
{
    /// Bytes of the payload, as the packet claims.
    UInt64 payloadBytes() const noexcept { return packetBytes - headBytes - tailBytes; }

    /// Number of the track in its file package; 0 until it is known.
    unsigned int trackID = 0;

    /// Bytes that the element takes in the file: key, length field and value,
    /// and what fills it up where an index table tells that.
    UInt64 elementSize = 0;

    /// How long the payload plays, in seconds.
    Templates::Rational<Int64> duration;

    /// Null when there is nothing more to read.
    Templates::auto_ptr<KLV::Packet> packet;

    /// Bytes of the packet's value.
    UInt64 packetBytes = 0;
    UInt64 headBytes = 0;
    UInt64 tailBytes = 0;

    /// The edit unit, counted in the container; that of the first picture in a
    /// clip.
    Int64 editUnit = 0;

    /// From the index table, as IndexTables::IndexEntry tells them. Without
    /// one, decoding can start here.
    unsigned char flags = IndexTables::IndexEntry::RANDOM_ACCESS;
    signed char temporalOffset = 0;
    signed char keyFrameOffset = 0;
};

}}
