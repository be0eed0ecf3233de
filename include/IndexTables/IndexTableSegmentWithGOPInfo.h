#pragma once

#include "IndexTables/GOPInfo.h"
#include "IndexTables/IndexTableSegment.h"
#include "Templates/Containers.h"

namespace Vantry { namespace IndexTables {

/// An index table segment that knows the groups of pictures among its edit
/// units, from the flags and offsets of its index entries as they were read.
///
/// A group starts with a picture that depends on none. One that spans two
/// segments, or whose pictures are shown in another segment than they are
/// stored in, is known in full once the neighbours were told to each other.
/// What is found out so is kept in both, though they are const: it adds to
/// what they tell and takes nothing back.
class VANTRY_EXPORT IndexTableSegmentWithGOPInfo : public IndexTableSegment
{
public:
    /// Reads a segment.
    ///
    /// \throws Exceptions as IndexTableSegment.
    IndexTableSegmentWithGOPInfo(KLV::Packet & packet, IndexTableSegmentListener * listener);
    ~IndexTableSegmentWithGOPInfo() override;

    /// What is known of an edit unit, counted from the start of the segment.
    ///
    /// \throws Exceptions::IndexOutOfBounds when it has no index entry.
    GOPInfo const & gopInfo(unsigned int index) const;

    /// The groups, by `gopIndex`.
    Templates::map<int, GOPStructuralInfo> const & gopIndex2SizeMap() const;

    /// Estimates the `temporalGopPosition` of an edit unit of a segment whose
    /// neighbours aren't known: `gopPosition` less `index`, and the segment's
    /// `indexDuration`. Nothing changes when that doesn't fit, for an `index`
    /// behind the duration, and for the first edit unit of a stream.
    void updateMissingIndex(unsigned int index, IndexTableSegmentWithGOPInfo const * segment) const;

    /// Tells this segment and its neighbours what they know of the groups that
    /// they share. A neighbour may be null; one that hasn't an index entry for
    /// each edit unit is passed over. Doing it again changes nothing.
    ///
    /// \throws Exceptions::InvalidIndexSegment when a neighbour doesn't adjoin.
    /// \throws Exceptions::NotImplemented when the earlier of two segments has
    ///         no start of a group, nor knows of one from the segment before
    ///         it.
    void updateMissingInfo(IndexTableSegmentWithGOPInfo const * previous,
                           IndexTableSegmentWithGOPInfo const * next) const;

private:
    class Groups;
    Groups * groups_;
};

}}
