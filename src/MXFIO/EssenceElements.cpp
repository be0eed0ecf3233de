#include "MXFIO/EssenceElements.h"

#include "DataIO/RandomAccessDataSource.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "IndexTables/IndexTableSegment.h"
#include "KLV/KeyPredicates.h"
#include "KLV/Packet.h"
#include "KLV/Reader.h"
#include "MXFIO/EssenceUtils.h"
#include "MXFIO/Partition.h"
#include "MXFIO/Reader.h"
#include "MXFIO/SaturatingSum.h"
#include "MXFIO/Unreadable.h"
#include "Platform/Allocator.h"

#include <functional>
#include <set>

namespace Vantry { namespace MXFIO {

namespace {

using IndexTables::DeltaEntry;

unsigned int const ELEMENT_COUNT_BYTE = 0x00FF0000;
unsigned char const MOST_POSITION_TABLES = 254;

// No content package has as many elements: what follows is something else.
unsigned int const MOST_ELEMENTS = 4096;

DeltaEntry const NO_DELTA(0, 0, 0);

// Goes with the packets of an edit unit through the delta entries.
class DeltaWalk
{
public:
    explicit DeltaWalk(IndexTables::IndexTableSegment const * segment) : segment_(segment) {}

    // Whether an element starts here. When the entries have turned out to be
    // wrong every packet is one.
    bool isElement()
    {
        if (!hasEntry())
            return true;

        DeltaEntry const & entry = segment_->deltaEntry(next_);
        if (entry.slice() != slice_)
        {
            slice_ = entry.slice();
            offset_ = 0;
        }
        if (entry.elementDelta() < offset_)
            segment_ = nullptr;
        bool const isHere = segment_ == nullptr || entry.elementDelta() == offset_;
        passedOver_ = passedOver_ || !isHere;
        return isHere;
    }

    DeltaEntry take() { return hasEntry() ? segment_->deltaEntry(next_++) : NO_DELTA; }

    void pass(UInt64 size) { offset_ = saturatingSum(offset_, size); }

    // Whether entries are left that nothing was found for, while there were
    // packets that none told of.
    bool isContradicted() const { return passedOver_ && hasEntry(); }

private:
    bool hasEntry() const { return segment_ != nullptr && next_ < segment_->deltaEntryCount(); }

    IndexTables::IndexTableSegment const * segment_;
    unsigned int next_ = 0;
    unsigned char slice_ = 0;
    UInt64 offset_ = 0;
    bool passedOver_ = false;
};

}

void EssenceElements::learn(Reader & reader, Partition & partition, UInt64 searchLimit,
                            IndexTables::IndexTableSegment const * segment)
{
    if (learnBy(partition, searchLimit, segment))
        return;

    // The delta entries fit no packet. The essence can be read without them.
    reader.source().seek(partition.bodyAbsoluteOffset());
    learnBy(partition, searchLimit, nullptr);
}

// False when the delta entries are of no use.
bool EssenceElements::learnBy(Partition & partition, UInt64 searchLimit, IndexTables::IndexTableSegment const * segment)
{
    clear();
    partition.rewind();
    DeltaWalk walk(segment);
    std::set<unsigned int, std::less<>, Platform::Allocator<unsigned int>> met;
    while (!areAll_ && met.size() < MOST_ELEMENTS)
    {
        Templates::auto_ptr<KLV::Packet> const packet =
            nothingIfUnreadable([&] { return partition.nextBodyKLV(searchLimit); });
        if (!packet)
            break;

        if (!KLV::isFillItem(packet->key()))
        {
            // The second edit unit starts, whether its first packet is of an
            // element or not.
            areAll_ = !met.insert(key2TrackNumber(packet->key()) & ~ELEMENT_COUNT_BYTE).second;
            if (!areAll_ && walk.isElement())
                add(packet->key(), walk.take());
        }
        walk.pass(packet->klvLength());
    }
    return !walk.isContradicted();
}

void EssenceElements::learnClip(Reader & reader, Partition & partition, UInt64 searchLimit,
                                IndexTables::IndexTableSegment const * segment)
{
    clear();
    partition.rewind();
    reader.source().seek(partition.bodyAbsoluteOffset());
    UInt64 skipped = 0;
    KLV::Key const key = reader.klvReader().peekNextKey(skipped, searchLimit);
    VANTRY_CHECK_TEXT(!KLV::isFillItem(key), "!KLV::isFillItem (key)", InvalidFormat,
                      "Expected Essence KLV on clip-wrapped body partition");
    add(key, DeltaWalk(segment).take());
    areAll_ = true;
}

EssenceElements::Element const * EssenceElements::find(unsigned int trackNumber) const
{
    auto const found = elements_.find(trackNumber & ~ELEMENT_COUNT_BYTE);
    return found == elements_.end() ? nullptr : &found->second;
}

void EssenceElements::add(KLV::Key const & key, DeltaEntry const & delta)
{
    unsigned int const trackNumber = key2TrackNumber(key);
    auto const place =
        elements_.insert({trackNumber & ~ELEMENT_COUNT_BYTE, Element{delta, size(), trackNumber, key}}).first;
    order_.push_back(&place->second);
    if (static_cast<unsigned char>(delta.posTableIndex()) > MOST_POSITION_TABLES)
        temporalReorderingTrack_ = trackNumber;
}

void EssenceElements::clear()
{
    order_.clear();
    elements_.clear();
    temporalReorderingTrack_ = 0;
    areAll_ = false;
}

}}
