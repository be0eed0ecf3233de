#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/auto_ptr.h"

namespace Vantry { namespace IndexTables {

class IndexTableSegment;

/// The segments of one index stream, found by the edit units that they cover.
///
/// Segments may come in any order, overlap and leave gaps. Their place is
/// what they say when they are added. One thread at a time.
class VANTRY_EXPORT IndexTable
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \param indexSID  the stream of the index
    /// \param bodySID   the stream of the essence
    IndexTable(unsigned int indexSID, unsigned int bodySID);

    IndexTable(IndexTable const &) = delete;
    IndexTable & operator=(IndexTable const &) = delete;
    virtual ~IndexTable();

    /// Adds a segment. Files repeat segments in several partitions: without
    /// `allowDuplicates`, one with start and duration of another is dropped.
    ///
    /// \throws Exceptions::InvalidID when the segment has another body SID,
    ///         or an index SID and another one; it is deleted.
    void add(Templates::auto_ptr<IndexTableSegment> segment, bool allowDuplicates);

    /// The segment that covers an edit unit, null when there is none: of
    /// several the one that starts last, and of these the one added last. A
    /// segment of duration 0 has no end. Takes time in proportion to the
    /// logarithm of the number of segments.
    IndexTableSegment * find(Int64 position) const;

    unsigned int bodySID() const;
    unsigned int indexSID() const;

    /// Number of segments.
    unsigned int size() const;

private:
    class Impl;
    Impl * impl_;
};

}}
