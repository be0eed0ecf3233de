#pragma once

#include "KLV/Key.h"
#include "MXFIO/ElementReader.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace KLV {
class Packet;
}

namespace MXFIO {

class ContentStorageReader;
class Seeker;

/// What the element readers of all ways of wrapping have in common: a place in
/// the container that goes on, and an end. Derived classes read.
class VANTRY_EXPORT BaseElementEssenceReader : public ElementReader
{
public:
    /// The clip of a track that is read.
    struct Clip
    {
        unsigned int trackID;
        unsigned int trackNumber;

        /// Lent; may be null.
        Metadata::Structural::FileDescriptor const * descriptor;

        /// Edit units per second, in which the others are counted.
        Templates::Rational<Int64> trackRate;
        Int64 startOffset;
        Int64 origin;

        /// -1 when it isn't known.
        Int64 duration;
    };

    /// \param reader  lent; it outlives this one
    /// \throws Exceptions::KeyNotFound when the container has no such element.
    BaseElementEssenceReader(ContentStorageReader & reader, Clip const & clip);
    ~BaseElementEssenceReader() override;

    unsigned int trackNumber() const override;
    unsigned int trackID() const override;
    Metadata::Structural::FileDescriptor const * descriptor() const override;
    Templates::Rational<Int64> trackRate() const override;
    Templates::Rational<Int64> containerRate() const override;
    Int64 startOffset() const override;
    Int64 origin() const override;
    Int64 duration() const override;
    Int64 position() const override;
    bool isAtEnd() const override;
    bool setPosition(Int64 position) override;
    bool setPosition(Templates::Rational<Int64> & seconds) override;
    bool seek(Int64 containerEditUnit) override;
    Templates::Rational<Int64> editUnitsToSeconds(Templates::Rational<Int64> const & editUnits) const override;
    Templates::Rational<Int64> secondsToEditUnits(Templates::Rational<Int64> const & seconds) const override;

protected:
    /// The next packet of the element; others are given up on the way. Null at
    /// the end. Registry version and element count of the key don't matter.
    Templates::auto_ptr<KLV::Packet> nextPacket(UInt64 searchLimit);

    /// Moves the container; the hook of `seek`. False when it hasn't the
    /// edit unit.
    virtual bool moveTo(Int64 containerEditUnit) = 0;

    /// Goes behind the clip, whose end is known. The container stays.
    virtual void moveToEnd();

    ContentStorageReader & reader() const { return reader_; }
    Seeker & seeker() const;

    /// The edit unit of the container that is read next.
    Int64 nextEditUnit() const { return nextEditUnit_; }
    void nextEditUnit(Int64 containerEditUnit) { nextEditUnit_ = containerEditUnit; }

    /// The first edit unit of the container behind the clip; -1 when it isn't
    /// known.
    Int64 endEditUnit() const { return endEditUnit_; }

    /// Start and end of the clip in edit units of the track, counted from the
    /// first one stored; the end is -1 when it isn't known.
    Int64 firstTrackEditUnit() const;
    Int64 endTrackEditUnit() const;

    /// The edit unit of the container that such an edit unit of the track
    /// starts in, and the one that starts nearest to it.
    Int64 positionFor(Int64 trackEditUnit) const;
    Int64 nearestUnit(Int64 trackEditUnit) const;

    /// The edit unit of the track that starts where one of the container does,
    /// or is the first to start behind.
    Int64 trackEditUnitAt(Int64 containerEditUnit) const;

private:
    ContentStorageReader & reader_;
    Clip const clip_;
    Templates::Rational<Int64> const containerRate_;

    // Edit units of the container in one of the track.
    Templates::Rational<Int64> const ratio_;
    KLV::Key const key_;
    Int64 nextEditUnit_;
    Int64 endEditUnit_;
};

}
}
