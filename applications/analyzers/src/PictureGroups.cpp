#include "PictureGroups.h"

#include "IndexTables/IndexEntry.h"

#include <algorithm>

namespace Vantry { namespace Analyzers {

namespace {

using IndexTables::IndexEntry;

// Temporal references count up to here and begin again.
int const REFERENCES = 1024;

// Groups that are longer aren't compared.
std::size_t const LONGEST_COMPARED = 1024;

// The kind of picture in the low bits.
UInt8 const PREDICTED_FLAGS = IndexEntry::FORWARD_PREDICTION | 0x02;
UInt8 const BIDIRECTIONAL_FLAGS = IndexEntry::FORWARD_PREDICTION | IndexEntry::BACKWARD_PREDICTION | 0x03;

}

PictureGroups::Place PictureGroups::add(CodedFrame const & frame)
{
    bool const isIntra = frame.picture.type == PictureType::INTRA;
    hasGroupHeaders_ = hasGroupHeaders_ || frame.group;
    if (frames_ == 0 || frame.group)
        beginReferences(frame);
    if (frames_ == 0 || frame.group || (isIntra && !hasGroupHeaders_))
        beginGroup(frame);
    if (isIntra || frame.hasSequenceHeader)
        lastAnchor_ = frames_;

    Place place{0, 0};
    place.temporalOffset =
        static_cast<Int8>(static_cast<UInt8>(framesAhead(frame) + static_cast<int>((frames_ - lastAnchor_) & 0xFF)));
    if (frame.picture.type == PictureType::PREDICTED)
        place.flags = PREDICTED_FLAGS;
    else if (frame.picture.type == PictureType::BIDIRECTIONAL)
        place.flags = BIDIRECTIONAL_FLAGS;
    else if (isRandomAccess(frame))
        place.flags = IndexEntry::RANDOM_ACCESS;
    if (frame.hasSequenceHeader)
        place.flags |= IndexEntry::SEQUENCE_HEADER;

    follow(frame.picture.type);
    ++frames_;
    longest_ = std::max(longest_, frames_ - groupBegin_);
    return place;
}

void PictureGroups::beginGroup(CodedFrame const & frame)
{
    if (firstTypes_.empty())
        firstTypes_ = types_;
    areIdentical_ = areIdentical_ && types_ == firstTypes_;
    types_.clear();
    groupBegin_ = frames_;

    areClosed_ = areClosed_ && isRandomAccess(frame);
}

// Without a header, the first frame of the stream is taken for one that is
// shown first.
void PictureGroups::beginReferences(CodedFrame const & frame)
{
    firstReference_ = frame.group ? 0 : static_cast<int>(frame.picture.temporalReference);
    referencesBegin_ = frames_;
}

void PictureGroups::follow(PictureType type)
{
    if (types_.size() < LONGEST_COMPARED)
        types_ += static_cast<char>(type);
    hasPredicted_ = hasPredicted_ || type != PictureType::INTRA;
    if (type == PictureType::BIDIRECTIONAL)
    {
        longestRun_ = std::max(longestRun_, ++run_);
        return;
    }
    areRunsEqual_ = areRunsEqual_ && (run_ == 0 || run_ == longestRun_);
    run_ = 0;
}

// How many frames later it is shown than it is coded.
int PictureGroups::framesAhead(CodedFrame const & frame) const
{
    auto const coded = static_cast<int>((frames_ - referencesBegin_) % REFERENCES);
    int const shown = static_cast<int>(frame.picture.temporalReference) - firstReference_;
    return (shown - coded + 2 * REFERENCES + REFERENCES / 2) % REFERENCES - REFERENCES / 2;
}

// No picture that is shown ahead of it depends on pictures ahead of it.
bool PictureGroups::isRandomAccess(CodedFrame const & frame) const
{
    return (frame.group && frame.group->isClosed) || framesAhead(frame) <= 0;
}

}}
