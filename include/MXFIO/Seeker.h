#pragma once

#include "MXFIO/ContentStorageProfile.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace KLV {
class Key;
}
namespace IndexTables {
struct GOPInfo;
class IndexEntry;
}

namespace MXFIO {

class Partition;
class Reader;

/// Finds edit units and elements of an essence container by what the file
/// offers: edit units of one size, an index table, or an estimate.
///
/// Byte offsets are those of the container, which runs on through all its
/// bodies. A look-up that reads the source leaves it where it was. One thread
/// at a time.
class VANTRY_EXPORT Seeker
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \param reader     lent; it outlives the seeker
    /// \param indexSID   0 when the container has no index
    /// \param streaming  whether the file may still grow
    /// \param profile    what the application knows; may be empty
    /// \throws Exceptions::IOError when the source fails.
    Seeker(Reader & reader, unsigned int bodySID, unsigned int indexSID, bool streaming,
           Templates::SharedPtr<ContentStorageProfile> const & profile);
    Seeker(Seeker const &) = delete;
    Seeker & operator=(Seeker const &) = delete;
    ~Seeker();

    /// Takes another profile.
    void setContentStorageProfile(Templates::SharedPtr<ContentStorageProfile> const & profile);

    /// Learns which elements the edit units of a container have, and where, by
    /// its first one. The source is moved.
    ///
    /// \param partition      the one that the container starts in
    /// \param searchLimit    bytes that may lie ahead of a key
    /// \param isClipWrapped  whether there is one element and no more
    /// \return false when nothing follows the first edit unit, of which there
    ///         may be more to come in a file that grows
    /// \throws Exceptions::InvalidFormat when a fill item stands where the
    ///         clip should.
    bool learnElements(Partition & partition, UInt64 searchLimit, bool isClipWrapped);

    /// The track numbers of the elements, in the order of the file.
    Templates::vector<unsigned int> elements() const;

    /// Whether there is an element with this track number. The element count
    /// byte doesn't matter, here and below.
    bool trackNumberExists(unsigned int trackNumber) const;

    /// The place of an element in the edit unit, from 0.
    ///
    /// \return false when there is none with this track number
    bool elementIndex(unsigned int trackNumber, unsigned int & index) const;

    /// The key of an element.
    ///
    /// \throws Exceptions::KeyNotFound when there is none with this track
    ///         number.
    KLV::Key const & elementKey(unsigned int trackNumber) const;

    /// The place of the element behind one, which is 0 behind the last. It
    /// stays what it is when there is none with this track number.
    void passElement(unsigned int trackNumber, unsigned int & index) const;

    /// Where an edit unit starts.
    ///
    /// \return false when there is an index, and it doesn't reach there
    /// \throws Exceptions::NotImplemented when segments with edit units of one
    ///         size follow others.
    bool bodyOffsetOf(Int64 editUnit, UInt64 & bodyOffset);

    /// Where an element starts, by an index entry. An element behind one of
    /// the system item starts there, and one without delta entry where its
    /// edit unit does.
    ///
    /// \param trackNumber  becomes that of the element which is there
    /// \return false when no index entry tells
    /// \throws Exceptions::KeyNotFound when there is no such element.
    bool elementOffsetOf(Int64 editUnit, unsigned int & trackNumber, UInt64 & bodyOffset);

    /// Bytes that an element takes in an edit unit, with all that fills it
    /// up, where edit units are of one size; 0 when that isn't known.
    UInt64 elementSize(Int64 editUnit, unsigned int trackNumber);

    /// The partition that holds a place of the container, null for none.
    ///
    /// \throws Exceptions::InvalidFormat as PartitionProvider.
    Partition * partitionContaining(UInt64 bodyOffset, Int64 editUnit);

    /// The index entry of an edit unit, null when there is none. It is good
    /// until the next look-up.
    IndexTables::IndexEntry const * indexEntry(Int64 editUnit);

    /// What is known of the group of pictures that an edit unit is in.
    ///
    /// \return false when there is no index entry
    /// \throws Exceptions::InvalidIndexSegment, Exceptions::NotImplemented as
    ///         IndexTableSegmentWithGOPInfo.
    bool gopInfo(Int64 editUnit, IndexTables::GOPInfo & info);

    /// The track number of the element whose pictures are stored in another
    /// order than they are shown in; 0 for none.
    unsigned int temporalReorderingTrack() const;

    /// Edit units from the place where a picture is shown to the one where it
    /// is stored; 0 without an index entry.
    int temporalOffset(Int64 editUnit);

    /// Whether there is any index segment.
    bool hasIndex();

    /// The first edit unit behind the index; -1 when there is no index or it
    /// has no end.
    Int64 endOfIndex();

    /// Edit units per second by the index; 0/1 without one.
    Templates::Rational<Int64> indexEditRate();

    /// Bytes of each edit unit, where the index says that for the whole
    /// container however long it is; else 0.
    unsigned int editUnitByteCount() const;

    /// Tells how large the container is, for estimates.
    ///
    /// \param containerSize  bytes, -1 when unknown
    /// \param duration       edit units
    void setExtent(Int64 containerSize, Templates::Rational<Int64> const & duration);

    /// Tells that an edit unit was reached, for estimates. Only the highest
    /// numbers count.
    void reached(Int64 editUnit, UInt64 bodyOffset) noexcept;

    /// Takes up what index or profile have to say since the file has grown.
    void refresh();

private:
    class Impl;
    Impl * impl_;
};

}
}
