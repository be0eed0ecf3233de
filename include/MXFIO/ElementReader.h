#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"

namespace Vantry {
namespace Metadata { namespace Structural {
class FileDescriptor;
}}

namespace MXFIO {

struct ElementEditUnit;

/// Reads the essence of one track, or of a clip on it, from its container.
///
/// Positions are edit units of `trackRate` from the start of the clip, in the
/// order in which they are shown. Several readers may share a container and
/// its source: each goes where it has to be.
class VANTRY_EXPORT ElementReader
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~ElementReader();

    /// Bytes 12 to 15 of the element's key.
    virtual unsigned int trackNumber() const = 0;

    /// Number of the track in its file package.
    virtual unsigned int trackID() const = 0;

    /// What describes the track; null when nothing does.
    virtual Metadata::Structural::FileDescriptor const * descriptor() const = 0;

    /// Edit units of the track per second.
    virtual Templates::Rational<Int64> trackRate() const = 0;

    /// Edit units of the container per second.
    virtual Templates::Rational<Int64> containerRate() const = 0;

    /// Where the clip starts on the track, in edit units of the track.
    virtual Int64 startOffset() const = 0;

    /// Edit units of the track that are stored ahead of its start.
    virtual Int64 origin() const = 0;

    /// Edit units of the clip; -1 when it isn't known.
    virtual Int64 duration() const = 0;

    /// Where the next read is.
    virtual Int64 position() const = 0;

    /// Whether the clip is known to be over at `position`.
    virtual bool isAtEnd() const = 0;

    /// Reads what is next.
    ///
    /// \param searchLimit  bytes that may lie ahead of a key
    /// \param unit         what was read; without a packet at the end of the
    ///                     track, and where the file can't be read
    /// \return whether there is a packet
    /// \throws Exceptions::IOError when the source fails.
    virtual bool nextElement(UInt64 searchLimit, ElementEditUnit & unit) = 0;

    /// Goes to a position; the end counts as one.
    ///
    /// \return false behind the end of the clip, which moves nothing, and where
    ///         the container hasn't the place; `position` tells then where the
    ///         container stands
    virtual bool setPosition(Int64 position) = 0;

    /// Goes to the edit unit in which a time lies, counted from the start of
    /// the clip.
    ///
    /// \param seconds  what of it lies behind the start of the edit unit is
    ///                 left here
    virtual bool setPosition(Templates::Rational<Int64> & seconds) = 0;

    /// Goes to an edit unit of the container, as it is stored. Failures as
    /// with `setPosition`.
    virtual bool seek(Int64 containerEditUnit) = 0;

    /// Edit units of the track in seconds, and back.
    virtual Templates::Rational<Int64> editUnitsToSeconds(Templates::Rational<Int64> const & editUnits) const = 0;
    virtual Templates::Rational<Int64> secondsToEditUnits(Templates::Rational<Int64> const & seconds) const = 0;
};

}
}
