#include "MXFIO/PackageClip.h"

#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/ElementReader.h"
#include "MXFIO/RateOf.h"

#include <utility>

namespace Vantry { namespace MXFIO {

namespace {

using Time = PackageClip::Time;

std::unique_ptr<ElementReader> makeReader(PackageClip::Stretch const & stretch)
{
    return std::unique_ptr<ElementReader>(
        stretch.container
            ->elementReader(stretch.trackID, stretch.start, stretch.duration, stretch.editRate, stretch.inPieces)
            .release());
}

bool isWhole(Time const & number)
{
    return number.denominator() == 1;
}

// For what isn't below 0.
Int64 floorOf(Time const & number)
{
    return number.numerator() / number.denominator();
}

// Whether the container has nothing behind the stretch.
bool reachesEnd(PackageClip::Stretch const & stretch)
{
    ContentStorageReader & container = *stretch.container;
    Time const stored = container.storedUnits();
    Time const rate = container.unitRate();
    return stored >= 0 && rate > 0 &&
           Time(stretch.start) + Time(stretch.duration) >= stored / rate * rateOf(&stretch.editRate);
}

}

PackageClip::PackageClip(Time const & start, Stretch const & stretch) :
    start_(start), stretch_(stretch), reader_(makeReader(stretch))
{
}

PackageClip::PackageClip(PackageClip &&) noexcept = default;
PackageClip & PackageClip::operator=(PackageClip &&) noexcept = default;
PackageClip::~PackageClip() = default;

Time PackageClip::end() const
{
    return start_ + Time(stretch_.duration) / rateOf(&stretch_.editRate);
}

bool PackageClip::seek(Time & time)
{
    Time offset = time - start_;
    bool const isReached = reader_->setPosition(offset);
    time = start_ + reader_->editUnitsToSeconds(reader_->position());
    return isReached;
}

bool PackageClip::timeOf(Int64 containerEditUnit, Time & time) const
{
    ElementReader const & reader = *reader_;
    Time const shown = Time(containerEditUnit) / reader.containerRate() -
                       reader.editUnitsToSeconds(Time(reader.startOffset()) + Time(reader.origin()));
    if (!hasStart() || shown.numerator() < 0)
        return false;

    time = start_ + shown;
    return !hasEnd() || time < end();
}

Int64 PackageClip::containerEditUnitAt(Time const & time) const
{
    ElementReader const & reader = *reader_;
    Time const stored = time - start_ + reader.editUnitsToSeconds(Time(reader.startOffset()) + Time(reader.origin()));
    return floorOf(stored * reader.containerRate());
}

bool PackageClip::makePieces(Types::Rational const & editRate)
{
    next_.reset();
    if (!stretch_.inPieces || !stretch_.container->isClipWrapped())
        return true;

    Time const factor = rateOf(&editRate) / rateOf(&stretch_.editRate);
    Time const start = Time(stretch_.start) * factor;
    Time const duration = stretch_.duration < 0 ? Time(stretch_.duration) : Time(stretch_.duration) * factor;
    if (!isWhole(start) || !(isWhole(duration) || reachesEnd(stretch_)))
        return false;

    // The last piece ends with the clip.
    Stretch pieces = stretch_;
    pieces.start = start.numerator();
    pieces.duration = isWhole(duration) ? duration.numerator() : floorOf(duration) + 1;
    pieces.editRate = editRate;
    next_ = makeReader(pieces);
    return true;
}

void PackageClip::takePieces() noexcept
{
    if (next_)
        reader_ = std::move(next_);
}

}}
