#pragma once

#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"

namespace Vantry { namespace GenericContainer {

/// What an index table has to know of one element of a container.
struct IndexEntryData
{
    /// Bytes that the element takes in each edit unit, with its key, its length
    /// field and the fill behind it; 0 when they differ.
    UInt32 entryByteCount;

    /// The most bytes that the element's value takes; 0 when that isn't known.
    UInt32 boundedEditUnitSize;

    /// Bytes of the whole item that the element closes; 0 when it isn't padded.
    UInt32 itemSize;

    /// Whether edit units are stored in another order than they are shown in.
    bool isTemporal;

    /// Whether the first sample lies at another place in each edit unit.
    bool needsExtendedIndex;

    /// Whether fill follows that the index may have.
    bool isFilled;

    /// Whether the fill behind the element takes the item to its size.
    bool isPadToItem;

    /// Whether the element's value is of constant size by itself.
    bool isCBE;
};

/// What an index table has to know of a container.
struct IndexSegmentInfo
{
    enum ContentWrapKind : Int32
    {
        FRAME_WRAPPING = 0, ///< each edit unit in a packet of its own
        CLIP_WRAPPING = 1   ///< all in one packet
    };

    /// Edit units per second.
    Templates::Rational<int> indexRate;

    /// Bytes of the key and the length field of an element.
    UInt32 klLength;

    /// Bytes of a whole edit unit; 0 when it isn't padded.
    UInt32 paddedSize;

    ContentWrapKind wrapKind;

    /// Whether each edit unit needs an index entry, whatever its size.
    bool extendedTable;

    /// The elements as they lie in an edit unit.
    Templates::vector<IndexEntryData> entries;
};

}}
