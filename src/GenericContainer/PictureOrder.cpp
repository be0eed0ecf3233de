#include "GenericContainer/PictureOrder.h"

#include "IndexTables/IndexEntry.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace GenericContainer {

namespace {

using IndexTables::IndexEntry;

// The flags of a picture that depends on one ahead of the first group.
unsigned char const WITHOUT_GROUP_AHEAD = IndexEntry::FORWARD_PREDICTION | IndexEntry::BACKWARD_PREDICTION | 0x0B;

// Only differences of numbers matter, and these stay right modulo 256.
signed char low8(int number)
{
    return static_cast<signed char>(static_cast<unsigned char>(number));
}

// The first edit unit of a group that is too long for the number.
signed char nearest8(int offset)
{
    return static_cast<signed char>(std::max<int>(offset, std::numeric_limits<signed char>::min()));
}

}

void PictureOrder::process(IndexEntry & entry, UInt64 count, unsigned char flags, signed char temporalReference)
{
    entry.flags(flags);
    bool const isBackward = entry.backwardPrediction();
    if (entry.sequenceHeader() || (!isBackward && !entry.forwardPrediction()))
    {
        startGroup(entry.randomAccess(), count);
        entry.keyFrameOffset(0);
    }
    else
    {
        processPredicted(entry, isBackward);
    }
    entry.temporalOffset(temporalOffset(isBackward, temporalReference));
}

void PictureOrder::startGroup(bool isRandomAccess, UInt64 count)
{
    isOpen_ = !isRandomAccess;
    if (isOpen_ && count > 1)
        groupAhead_ = distance_ - 1;
    distance_ = 0;
}

void PictureOrder::processPredicted(IndexEntry & entry, bool isBackward)
{
    --distance_;
    isOpen_ = isOpen_ && isBackward;
    if (!isOpen_)
    {
        entry.keyFrameOffset(nearest8(distance_));
        return;
    }

    int offset = groupAhead_ + distance_;
    if (groupAhead_ == run_ + distance_)
    {
        --offset;
        entry.flags(WITHOUT_GROUP_AHEAD);
    }
    entry.keyFrameOffset(nearest8(offset));
}

signed char PictureOrder::temporalOffset(bool isBackward, signed char temporalReference)
{
    if (temporalReference == low8(-distance_))
        return 0;

    if (!isBackward)
    {
        run_ = 1;
        lastOfRun_ = low8(distance_ + temporalReference);
        return temporalReference == low8(distance_) ? 0 : 1;
    }

    if (run_ == lastOfRun_)
        return low8(-lastOfRun_);
    run_ = low8(run_ + 1);
    return 1;
}

}}
