#pragma once

#include "MXFIO/ContentStorageProfile.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace KLV {
class Packet;
}
namespace Metadata { namespace Structural {
class EssenceContainerData;
}}
namespace Types {
class Rational;
}

namespace MXFIO {

class ElementReader;
class Reader;
class Seeker;
class SystemItemKLVPacketListener;

/// Reads one essence container of a file: its packets in their order, from any
/// edit unit on.
///
/// A container that is one clip in one packet counts as a single edit unit;
/// `elementReader` reaches into it. Edit units are found by the index table.
/// Without one they are estimated, so that a read begins near the one asked
/// for; see `isSeekExact`.
///
/// All readers of a file share one position of the source. This one goes on
/// where it was, whoever moved it, but the value of a packet is to be read
/// before another is asked for anything. One thread at a time.
class VANTRY_EXPORT ContentStorageReader
{
public:
    VANTRY_CLASS_ALLOCATION

    /// Finds the container, its index, and what an edit unit holds.
    ///
    /// \param reader       lent; it outlives this one. A Reader2 finds its way
    ///                     faster, and follows a file that grows.
    /// \param container    lent, with the metadata that it belongs to
    /// \param loadRIP      load the random index pack if there is none yet
    /// \param computeSize  measure the container also where that takes a walk
    /// \param profile      what the application knows; may be empty
    /// \throws Exceptions::InvalidID when the container has no body SID.
    /// \throws Exceptions::OperationNotAllowed when it isn't part of a
    ///         Metadata::PartitionMetadata.
    /// \throws Exceptions::BrokenLink, Exceptions::NotFound when there is
    ///         essence but no package, descriptor or label that says how it is
    ///         wrapped.
    /// \throws Exceptions::NotFound when the file has no footer and no
    ///         partition of the container.
    ContentStorageReader(Reader & reader, Metadata::Structural::EssenceContainerData & container, bool loadRIP,
                         bool computeSize, Templates::SharedPtr<ContentStorageProfile> const & profile);
    ContentStorageReader(ContentStorageReader const &) = delete;
    ContentStorageReader & operator=(ContentStorageReader const &) = delete;
    ~ContentStorageReader();

    unsigned int bodySID() const;
    unsigned int indexSID() const;

    /// Edit units per second; 0/1 when nothing tells. That of a clip is one
    /// through its length.
    Templates::Rational<Int64> editRate() const;

    /// Number of edit units; -1/1 when it isn't known. That of a clip is 1.
    Templates::Rational<Int64> duration() const;

    /// How many edit units can be found, as far as the index and the bytes of
    /// the container reach by now. As long as neither tells, it is `duration`:
    /// the first index segment may put it below.
    Templates::Rational<Int64> indexableDuration();

    /// The edit unit that comes next. While its elements are being read it is
    /// the one behind.
    Int64 editUnit() const;

    /// The element that comes next, counted from 0 in its edit unit.
    unsigned int nextElementIndex() const;

    /// Bytes of each edit unit, where the index says so for the whole
    /// container; else 0.
    unsigned int editUnitByteCount() const;

    /// Bytes of the container; -1 when they weren't measured.
    Int64 containerSize() const;

    /// Bytes of the container ahead of what comes next.
    UInt64 bodyPosition() const;

    /// Whether the container is one clip in one packet.
    bool isClipWrapped() const;

    /// Rate of the edit units in a clip; that of the container if it isn't one.
    Templates::Rational<Int64> unitRate() const;

    /// Number of such edit units in the file, with those that are stored ahead
    /// of the start of the tracks; -1/1 when it isn't known.
    Templates::Rational<Int64> storedUnits() const;

    /// Whether pictures are stored in another order than they are shown in.
    bool temporalReordering() const;

    /// Whether `seek` finds edit units, rather than estimates where they are.
    bool isSeekExact();

    /// Whether the file has no footer yet, or comes from a source that grows.
    bool isStreaming() const;

    /// Goes to the start of an edit unit.
    ///
    /// \return false when there is none, and nothing has moved
    /// \throws Exceptions::InvalidFormat, Exceptions::NotImplemented when
    ///         partitions or index contradict themselves.
    bool seek(Int64 editUnit);

    /// Goes to an element of an edit unit, by its index entry.
    ///
    /// \return false when none tells where it is
    /// \throws Exceptions::KeyNotFound when the container has no such element;
    ///         others as `seek`.
    bool fineSeek(Int64 editUnit, unsigned int trackNumber);

    /// The next packet, fill items too; its value is yet to be read. One that
    /// the end of the file cuts off counts.
    ///
    /// \param searchLimit  bytes that may lie ahead of a key
    /// \return null at the end, and where what follows can't be read
    /// \throws Exceptions::IOError when the source fails.
    Templates::auto_ptr<KLV::Packet> nextKLV(UInt64 searchLimit);

    /// Gives up a packet. One of the system item goes to the listener, if
    /// there is one; the value of others is passed over.
    void discardKLVPacket(Templates::auto_ptr<KLV::Packet> packet);

    /// Has a listener get packets of the system item; lent.
    ///
    /// \throws Exceptions::InvalidState when there is one already.
    void registerKLVPacketListener(SystemItemKLVPacketListener * listener);
    void unregisterKLVPacketListener();

    void setContentStorageProfile(Templates::SharedPtr<ContentStorageProfile> const & profile);

    /// Takes up what a file has that grows: bytes, partitions, duration.
    void refreshSource();

    /// The track numbers of the elements, in the order of the file.
    Templates::vector<unsigned int> elements() const;

    /// The track with this track number in the container's package.
    ///
    /// \throws Exceptions::NotFound when there is none.
    unsigned int trackNumber2TrackID(unsigned int trackNumber) const;

    /// Makes a reader for a track, or for a clip on it; it must not outlive
    /// this one.
    ///
    /// \param trackID               of the track in the container's package
    /// \param startPosition         where the clip starts on the track
    /// \param duration              of the clip; -1 when it isn't known
    /// \param editRate              edit units per second in which both are
    ///                              counted, and all positions of the reader
    /// \param emulateFrameWrapping  give a clip in one packet in pieces, each
    ///                              an edit unit long
    /// \throws Exceptions::BrokenLink, Exceptions::NotFound,
    ///         Exceptions::InvalidElement when package, track, rate, sequence
    ///         or element are missing, or the track is shorter than others.
    Templates::auto_ptr<ElementReader> elementReader(unsigned int trackID, Int64 startPosition, Int64 duration,
                                                     Types::Rational const & editRate, bool emulateFrameWrapping);

    Reader & reader();
    Seeker & seeker();

private:
    class Impl;
    Impl * impl_;
};

}
}
