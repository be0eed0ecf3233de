#pragma once

#include "KLV/Key.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/SharedPtr.h"
#include "Types/Length.h"
#include "Types/LocalTag.h"
#include "Types/Position.h"
#include "Types/Rational.h"
#include "Types/UInt32.h"
#include "Types/UInt8.h"
#include "Types/UUID.h"
#include "Types/Unknown.h"

namespace Vantry {
namespace DataIO {
class DataSink;
}
namespace KLV {
class Packet;
}

namespace IndexTables {

class DeltaEntry;
class DeltaEntryArray;
class IndexEntry;
class IndexEntryArray;
class IndexTableSegmentListener;

/// A part of an index table (SMPTE 377M, 10.2): where edit units lie in an
/// essence stream, by their constant size (`editUnitByteCount`) or by an index
/// entry for each, and where elements lie in each edit unit.
///
///     key, length field
///     per element   2  local tag, see IndexTableLocalTag
///                   2  length
///                      value
///
/// All numbers are big-endian. Optional elements are null where they are
/// absent. Pointers and references that accessors give are good until the
/// element is set, reset or changed in number. One thread at a time.
class VANTRY_EXPORT IndexTableSegment
{
public:
    VANTRY_CLASS_ALLOCATION

    /// An element that no segment is known to have.
    struct UnknownElement
    {
        Types::LocalTag localTag;
        Templates::SharedPtr<Types::Unknown> value;
    };

    /// The key that segments are written with.
    static KLV::Key const & key();

    /// A segment with an identifier of its own, zeros and nothing optional.
    ///
    /// \param berLength  bytes of the length field, 1 to 9
    explicit IndexTableSegment(unsigned char berLength);

    /// Reads a segment. Elements come in any order, but that the counts have
    /// to stand ahead of the index entries; of a repeated element the last
    /// counts. None is compulsory: what is missing is as in a new segment.
    ///
    /// \param packet    with `key()` or the key of 2004, whose byte 14 is 0
    /// \param listener  is told of each element; may be null
    /// \throws Exceptions::InvalidIndexSegment for another key.
    /// \throws Exceptions::InvalidLength when lengths and counts contradict
    ///         each other or the packet. It carries what was read.
    IndexTableSegment(KLV::Packet & packet, IndexTableSegmentListener * listener);

    IndexTableSegment(IndexTableSegment const &) = delete;
    IndexTableSegment & operator=(IndexTableSegment const &) = delete;
    virtual ~IndexTableSegment();

    /// Bytes of key, length field and value.
    virtual UInt64 serializedSize() const;

    /// Writes the segment, without unknown elements. An array of more than
    /// 65535 bytes is written whole with the low 16 bits of its length, which
    /// no reader understands: keep arrays below that.
    ///
    /// \throws Exceptions::InvalidIndexSegment "Type size exceeded" for 4 GB
    ///         and more; nothing is written.
    /// \throws Exceptions::InvalidFormat when the length doesn't fit into
    ///         `berLength()` bytes; nothing is written.
    /// \throws Exceptions::IOError when the sink fails.
    void serialize(DataIO::DataSink & sink) const;

    /// Bytes of the length field.
    unsigned char berLength() const;

    /// Who is told of elements. Lent, may be null.
    void listener(IndexTableSegmentListener * listener);

    Types::UUID const & instanceUID() const;

    /// Edit units per second.
    Types::Rational const & indexEditRate() const;
    void indexEditRate(Types::Rational const & indexEditRate);

    /// The first edit unit of the segment.
    Types::Position const & indexStartPosition() const;
    void indexStartPosition(Types::Position const & indexStartPosition);

    /// Number of edit units; 0 when it isn't known.
    Types::Length const & indexDuration() const;
    void indexDuration(Types::Length const & indexDuration);

    /// Bytes of each edit unit; 0 or absent when they differ.
    Types::UInt32 const * editUnitByteCount() const;
    void editUnitByteCount(Types::UInt32 const & editUnitByteCount);
    void resetEditUnitByteCount();

    /// The stream of the index.
    Types::UInt32 const * indexSID() const;
    void indexSID(Types::UInt32 const & indexSID);
    void resetIndexSID();

    /// The stream of the essence.
    Types::UInt32 const & bodySID() const;
    void bodySID(Types::UInt32 const & bodySID);

    /// Slice offsets in each index entry: slices of an edit unit less one.
    Types::UInt8 const * sliceCount() const;

    /// \throws Exceptions::InvalidIndexSegment when there is an index entry
    ///         array.
    void sliceCount(Types::UInt8 const & sliceCount);

    /// Entries of the position table in each index entry.
    Types::UInt8 const * posTableCount() const;

    /// \throws Exceptions::InvalidIndexSegment when there is an index entry
    ///         array.
    void posTableCount(Types::UInt8 const & posTableCount);

    DeltaEntryArray * deltaEntryArray();
    DeltaEntryArray const * deltaEntryArray() const;

    /// Number of delta entries; 0 without array.
    unsigned int deltaEntryCount() const;

    /// A delta entry, counted from 0.
    ///
    /// \throws Exceptions::IndexOutOfBounds when there is none.
    DeltaEntry & deltaEntry(unsigned int index);
    DeltaEntry const & deltaEntry(unsigned int index) const;

    /// Puts a copy before the entry at `index`, which may be the number of
    /// entries.
    ///
    /// \throws Exceptions as DeltaEntryArray::insertAt.
    void addDeltaEntry(unsigned int index, DeltaEntry const & entry);

    /// \throws Exceptions::IndexOutOfBounds when there is none.
    void removeDeltaEntry(unsigned int index);

    /// Deletes the array.
    void resetDeltaEntryArray();

    IndexEntryArray * indexEntryArray();
    IndexEntryArray const * indexEntryArray() const;

    /// Number of index entries; 0 without array.
    unsigned int indexEntryCount() const;

    /// The index entry of edit unit `indexStartPosition() + index`.
    ///
    /// \throws Exceptions::IndexOutOfBounds when there is none.
    IndexEntry & indexEntry(unsigned int index);
    IndexEntry const & indexEntry(unsigned int index) const;

    /// Puts a copy before the entry at `index`, which may be the number of
    /// entries. The first entry makes the array, with the segment's counts.
    ///
    /// \throws Exceptions::InvalidElement when the entry hasn't the slice
    ///         offsets and the position table of the segment.
    /// \throws Exceptions::IndexOutOfBounds when `index` lies beyond.
    void addIndexEntry(unsigned int index, IndexEntry const & entry);

    /// \throws Exceptions::IndexOutOfBounds when there is none.
    void removeIndexEntry(unsigned int index);

    /// Deletes the array.
    void resetIndexEntryArray();

    /// In the order in which they were read.
    Templates::vector<UnknownElement> const & unknownElements() const;

private:
    class Impl;
    Impl * impl_;
};

}
}
