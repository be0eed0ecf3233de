#include "IndexSurvey.h"

#include "DataIO/RandomAccessDataSource.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidIndexSegment.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/KeyNotFound.h"
#include "Exceptions/NotEnoughData.h"
#include "FileLayout.h"
#include "IndexTables/IndexEntry.h"
#include "IndexTables/IndexTableSegment.h"
#include "KLV/Packet.h"
#include "MXFIO/Partition.h"
#include "Text.h"
#include "Warnings.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace Application {

namespace {

using IndexTables::IndexTableSegment;

UInt64 durationOf(IndexTableSegment const & segment)
{
    return static_cast<UInt64>(std::max<Int64>(segment.indexDuration().value(), 0));
}

/// Reads the segments of a partition one by one.
class SegmentsOfPartition
{
public:
    SegmentsOfPartition(MXFIO::Partition & partition, StreamIndexes & indexes, Warnings & warnings) :
        partition_(partition), indexes_(indexes), warnings_(warnings)
    {
    }

    void read()
    {
        try
        {
            partition_.rewind();
            while (Templates::auto_ptr<KLV::Packet> const packet = partition_.nextIndexTableSegmentsKLV())
                take(*packet);
        }
        catch (Exceptions::NotEnoughData const &)
        {
            cut();
        }
        catch (Exceptions::KeyNotFound const &)
        {
            cut();
        }
        catch (Exceptions::InvalidFormat const &)
        {
            cut();
        }
    }

private:
    void take(KLV::Packet & packet)
    {
        try
        {
            IndexTableSegment const segment(packet, nullptr);
            UInt64 const duration = durationOf(segment);
            if (segment.indexEntryCount() != 0 && segment.indexEntryCount() < duration)
                warnings_.add(fmt::format("the index table segment at offset {} has {} entries for {} edit units",
                                          packet.keyAbsoluteOffset(), segment.indexEntryCount(), duration));
            indexes_[segment.bodySID().value()].add(segment);
        }
        catch (Exceptions::InvalidLength const & failure)
        {
            fault(packet, failure);
        }
        catch (Exceptions::InvalidIndexSegment const & failure)
        {
            fault(packet, failure);
        }
    }

    void fault(KLV::Packet const & packet, Exceptions::BaseException const & failure)
    {
        warnings_.add(fmt::format("the index table segment at offset {} can't be read: {}", packet.keyAbsoluteOffset(),
                                  narrow(failure.message())));
    }

    void cut()
    {
        warnings_.add(fmt::format("the index of the partition at offset {} can't be read to its end",
                                  partition_.partitionAbsoluteOffset()));
    }

    MXFIO::Partition & partition_;
    StreamIndexes & indexes_;
    Warnings & warnings_;
};

}

void StreamIndex::add(IndexTableSegment const & segment)
{
    if (indexSID_ == 0 && segment.indexSID() != nullptr)
        indexSID_ = segment.indexSID()->value();
    if (!editRate_)
        editRate_ = EditRate::of(&segment.indexEditRate());

    Span const span(segment.indexStartPosition().value(), durationOf(segment));
    auto const [place, isNew] = segments_.emplace(span, Content{0, {}});
    if (!isNew)
        return;

    Content & content = place->second;
    if (segment.editUnitByteCount() != nullptr)
        content.editUnitByteCount = segment.editUnitByteCount()->value();
    content.offsets.reserve(segment.indexEntryCount());
    for (unsigned int i = 0; i < segment.indexEntryCount(); ++i)
        content.offsets.push_back(segment.indexEntry(i).streamOffset());
}

void StreamIndex::finish()
{
    bool gapless = true;
    for (auto const & [span, content] : segments_)
    {
        editUnitByteCount_ = std::max(editUnitByteCount_, content.editUnitByteCount);
        if (content.editUnitByteCount == 0 && !content.offsets.empty())
            gapless = gapless && takeOffsets(span, content.offsets);
    }
    if (!offsets_.empty())
        editUnitByteCount_ = 0;
}

/// Appends what a segment adds; false when edit units are missing ahead of it.
bool StreamIndex::takeOffsets(Span const & span, std::vector<UInt64> const & offsets)
{
    if (endsWithMark_)
        offsets_.pop_back();
    endsWithMark_ = false;

    auto const & [start, duration] = span;
    UInt64 const ahead = static_cast<UInt64>(start) - static_cast<UInt64>(segments_.begin()->first.first);
    if (ahead > offsets_.size())
        return false;

    // Segments may overlap.
    UInt64 const known = offsets_.size() - ahead;
    UInt64 const units = duration != 0 ? std::min<UInt64>(duration, offsets.size()) : offsets.size();
    for (UInt64 i = known; i < units; ++i)
        offsets_.push_back(offsets[i]);
    endsWithMark_ = units < offsets.size() && known <= units;
    if (endsWithMark_)
        offsets_.push_back(offsets[units]);
    return true;
}

std::string_view StreamIndex::kind() const
{
    if (!offsets_.empty())
        return "vbe";
    return editUnitByteCount_ != 0 ? "cbe" : "none";
}

std::optional<UInt64> StreamIndex::editUnits() const
{
    if (!offsets_.empty())
        return offsets_.size() - (endsWithMark_ ? 1 : 0);

    // From the first edit unit on; both differences are below 2^64.
    UInt64 end = 0;
    UInt64 units = 0;
    for (auto const & [span, content] : segments_)
    {
        auto const & [start, duration] = span;
        if (duration == 0)
            return std::nullopt;
        UInt64 const from = static_cast<UInt64>(start) - static_cast<UInt64>(segments_.begin()->first.first);
        UInt64 const to = from + std::min(duration, std::numeric_limits<UInt64>::max() - from);
        units += to - std::min(std::max(from, end), to);
        end = std::max(end, to);
    }
    return units;
}

StreamIndexes readIndexes(FileLayout const & layout, Warnings & warnings)
{
    StreamIndexes indexes;
    for (MXFIO::Partition * partition : layout.partitions())
        SegmentsOfPartition(*partition, indexes, warnings).read();
    for (auto & [bodySID, index] : indexes)
        index.finish();
    return indexes;
}

}}
