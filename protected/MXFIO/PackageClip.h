#pragma once

#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Types/Rational.h"

#include <memory>

namespace Vantry { namespace MXFIO {

class ContentStorageReader;
class ElementReader;

/// A clip on a track, for which the file has essence. Times are seconds on the
/// time line of the package.
class PackageClip
{
public:
    using Time = Templates::Rational<Int64>;

    /// What it shows of a container, in edit units of the track.
    struct Stretch
    {
        /// Lent.
        ContentStorageReader * container;

        /// Of the track in the container's package.
        unsigned int trackID;

        /// Where it starts on that track.
        Int64 start;

        /// -1 when it isn't known.
        Int64 duration;

        /// Edit units per second, above 0.
        Types::Rational editRate;

        /// Whether a clip in one packet is given in pieces.
        bool inPieces;
    };

    /// \param start  -1/1 when it isn't known
    /// \throws what ContentStorageReader::elementReader throws.
    PackageClip(Time const & start, Stretch const & stretch);
    PackageClip(PackageClip &&) noexcept;
    PackageClip & operator=(PackageClip &&) noexcept;
    ~PackageClip();

    ElementReader & reader() const { return *reader_; }
    ContentStorageReader & container() const { return *stretch_.container; }

    bool hasStart() const { return start_ >= 0; }
    Time const & start() const { return start_; }
    void start(Time const & time) { start_ = time; }

    bool hasEnd() const { return hasStart() && stretch_.duration >= 0; }

    /// Where there is one.
    Time end() const;

    /// Goes to the edit unit in which a time lies, as ElementReader does.
    ///
    /// \param time  becomes the time that was reached
    bool seek(Time & time);

    /// When an edit unit of the container is shown, going by its number. False
    /// when the clip doesn't show it.
    bool timeOf(Int64 containerEditUnit, Time & time) const;

    /// The reverse, rounded down.
    Int64 containerEditUnitAt(Time const & time) const;

    /// Makes a reader that gives pieces of another length, if there are pieces
    /// at all; `takePieces` puts it in place.
    ///
    /// \param editRate  pieces per second
    /// \return false when the clip starts or ends within a piece
    bool makePieces(Types::Rational const & editRate);
    void takePieces() noexcept;

private:
    Time start_;
    Stretch stretch_;
    std::unique_ptr<ElementReader> reader_;
    std::unique_ptr<ElementReader> next_;
};

}}
