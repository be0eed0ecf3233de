#include "MXFIO/Seeker.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/KeyNotFound.h"
#include "IndexTables/IndexEntry.h"
#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "MXFIO/ContentStorageProfile.h"
#include "MXFIO/EssenceElements.h"
#include "MXFIO/IndexTableProvider.h"
#include "MXFIO/PartitionProvider.h"
#include "MXFIO/PositionKeeper.h"
#include "MXFIO/PrecedingBytes.h"
#include "MXFIO/ProviderSelection.h"
#include "MXFIO/RateOf.h"
#include "MXFIO/Reader.h"
#include "MXFIO/SaturatingSum.h"
#include "MXFIO/UnitScale.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace MXFIO {

namespace {

using IndexTables::DeltaEntry;
using IndexTables::IndexEntry;
using SegmentPtr = Templates::SharedPtr<IndexTables::IndexTableSegmentWithGOPInfo>;
using Ratio = Templates::Rational<Int64>;

Int64 const UNKNOWN = -1;
unsigned int const SYSTEM_ITEM = 4;
Int64 const LAST_EDIT_UNIT = std::numeric_limits<Int64>::max();

UInt32 byteCountOf(IndexTables::IndexTableSegment const & segment)
{
    return segment.editUnitByteCount() != nullptr ? segment.editUnitByteCount()->value() : 0;
}

// Both numbers are claims; what they give may be behind every position.
UInt64 bytesOf(UInt32 editUnitByteCount, UInt64 editUnits)
{
    UInt64 bytes = 0;
    return __builtin_mul_overflow(UInt64(editUnitByteCount), editUnits, &bytes) ? std::numeric_limits<UInt64>::max()
                                                                                : bytes;
}

bool isSystemItem(unsigned int trackNumber)
{
    return trackNumber >> 24 == SYSTEM_ITEM;
}

}

class Seeker::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Container const & theContainer, Templates::SharedPtr<ContentStorageProfile> const & theProfile) :
        container(theContainer), index(indexTableProvider(container, theProfile))
    {
        profile(theProfile);
        refresh();
    }

    void profile(Templates::SharedPtr<ContentStorageProfile> const & profile);
    void refresh();

    bool hasIndex() { return firstSegment || index->lastSegment(); }

    // The index entry of an edit unit. Its segment is kept until the next.
    IndexEntry const * entryOf(Int64 editUnit);

    bool constantSizeOffset(Int64 editUnit, UInt64 & bodyOffset);
    UInt64 estimate(Int64 editUnit) const;

    EssenceElements::Element const & elementOf(unsigned int trackNumber) const;
    Partition * partitionContaining(UInt64 bodyOffset, Int64 editUnit);

    Container const container;
    Templates::auto_ptr<IndexTableProvider> const index;
    EssenceElements elements;
    SegmentPtr firstSegment;

    // The segment of the last look-up.
    SegmentPtr segment;

    UInt32 editUnitByteCount = 0;
    Ratio bytesPerEditUnit = UNKNOWN;
    Int64 highestEditUnit = 0;
    UInt64 highestOffset = 0;

private:
    Templates::SharedPtr<ContentStorageProfile> profile_;
    Templates::auto_ptr<PartitionProvider> partitions_;
    PrecedingBytes preceding_;
};

void Seeker::Impl::profile(Templates::SharedPtr<ContentStorageProfile> const & profile)
{
    profile_ = profile;
    partitions_.reset();
}

void Seeker::Impl::refresh()
{
    PositionKeeper const keeper(container.reader.source());
    if (!firstSegment)
        firstSegment = index->segment(0);

    unsigned int known = 0;
    if (firstSegment)
        editUnitByteCount = firstSegment->indexDuration().value() < 1 ? byteCountOf(*firstSegment) : 0;
    else if (profile_ && profile_->editUnitByteCount(&known) == KNOWLEDGE_KNOWN)
        editUnitByteCount = known;
}

IndexEntry const * Seeker::Impl::entryOf(Int64 editUnit)
{
    PositionKeeper const keeper(container.reader.source());
    segment = index->segment(editUnit);
    if (!segment)
        return nullptr;

    UInt64 const relative = UInt64(editUnit) - UInt64(segment->indexStartPosition().value());
    return relative < segment->indexEntryCount() ? &segment->indexEntry(static_cast<UInt32>(relative)) : nullptr;
}

// By a segment without entries, whose edit units are all of one size.
bool Seeker::Impl::constantSizeOffset(Int64 editUnit, UInt64 & bodyOffset)
{
    PositionKeeper const keeper(container.reader.source());
    UInt64 ahead = 0;
    if (!preceding_.ahead(*segment, *index, ahead))
        return false;

    UInt64 const relative = UInt64(editUnit) - UInt64(segment->indexStartPosition().value());
    bodyOffset = saturatingSum(ahead, bytesOf(byteCountOf(*segment), relative));
    return true;
}

UInt64 Seeker::Impl::estimate(Int64 editUnit) const
{
    if (bytesPerEditUnit >= 0)
        return static_cast<UInt64>(UnitScale(bytesPerEditUnit).floor(editUnit));
    if (highestEditUnit == 0)
        return 0;

    auto const offset = static_cast<Int64>(std::min(highestOffset, UInt64(LAST_EDIT_UNIT)));
    return static_cast<UInt64>(UnitScale(Ratio(offset, highestEditUnit)).floor(editUnit));
}

EssenceElements::Element const & Seeker::Impl::elementOf(unsigned int trackNumber) const
{
    EssenceElements::Element const * const element = elements.find(trackNumber);
    VANTRY_CHECK_TEXT(element != nullptr, "element != elements_.end ()", KeyNotFound,
                      "Track number not in Essence container");
    return *element;
}

Partition * Seeker::Impl::partitionContaining(UInt64 bodyOffset, Int64 editUnit)
{
    PositionKeeper const keeper(container.reader.source());
    if (!partitions_)
        partitions_ = partitionProvider(container, profile_);
    try
    {
        return partitions_->partitionContaining(bodyOffset, editUnit);
    }
    catch (Exceptions::InvalidFormat const &)
    {
        // The random index pack is wrong, or else this fails too.
        return basicPartitionProvider(container)->partitionContaining(bodyOffset, editUnit);
    }
}

Seeker::Seeker(Reader & reader, unsigned int bodySID, unsigned int indexSID, bool streaming,
               Templates::SharedPtr<ContentStorageProfile> const & profile) :
    impl_(new Impl({reader, bodySID, indexSID, streaming}, profile))
{
}

Seeker::~Seeker()
{
    delete impl_;
}

void Seeker::setContentStorageProfile(Templates::SharedPtr<ContentStorageProfile> const & profile)
{
    impl_->profile(profile);
    impl_->refresh();
}

bool Seeker::learnElements(Partition & partition, UInt64 searchLimit, bool isClipWrapped)
{
    Reader & reader = impl_->container.reader;
    IndexTables::IndexTableSegment const * const segment = impl_->firstSegment.get();
    if (isClipWrapped)
        impl_->elements.learnClip(reader, partition, searchLimit, segment);
    else
        impl_->elements.learn(reader, partition, searchLimit, segment);
    return impl_->elements.areAll();
}

Templates::vector<unsigned int> Seeker::elements() const
{
    Templates::vector<unsigned int> trackNumbers;
    for (unsigned int i = 0; i < impl_->elements.size(); ++i)
        trackNumbers.push_back(impl_->elements.at(i).trackNumber);
    return trackNumbers;
}

bool Seeker::trackNumberExists(unsigned int trackNumber) const
{
    return impl_->elements.find(trackNumber) != nullptr;
}

bool Seeker::elementIndex(unsigned int trackNumber, unsigned int & index) const
{
    EssenceElements::Element const * const element = impl_->elements.find(trackNumber);
    if (element != nullptr)
        index = element->index;
    return element != nullptr;
}

KLV::Key const & Seeker::elementKey(unsigned int trackNumber) const
{
    return impl_->elementOf(trackNumber).key;
}

void Seeker::passElement(unsigned int trackNumber, unsigned int & index) const
{
    if (EssenceElements::Element const * const element = impl_->elements.find(trackNumber))
        index = impl_->elements.indexBehind(*element);
}

bool Seeker::bodyOffsetOf(Int64 editUnit, UInt64 & bodyOffset)
{
    if (editUnit < 0)
        return false;
    if (impl_->editUnitByteCount != 0)
    {
        bodyOffset = bytesOf(impl_->editUnitByteCount, static_cast<UInt64>(editUnit));
        return true;
    }

    IndexEntry const * const entry = impl_->entryOf(editUnit);
    if (entry != nullptr)
    {
        bodyOffset = entry->streamOffset();
        return true;
    }
    if (!impl_->segment ? impl_->hasIndex() : impl_->segment->indexEntryCount() != 0)
        return false;
    if (impl_->segment && byteCountOf(*impl_->segment) != 0)
        return impl_->constantSizeOffset(editUnit, bodyOffset);

    bodyOffset = impl_->estimate(editUnit);
    return true;
}

bool Seeker::elementOffsetOf(Int64 editUnit, unsigned int & trackNumber, UInt64 & bodyOffset)
{
    EssenceElements::Element const * element = &impl_->elementOf(trackNumber);
    if (element->index != 0 && isSystemItem(impl_->elements.at(element->index - 1).trackNumber))
        element = &impl_->elements.at(element->index - 1);

    IndexEntry const * const entry = impl_->entryOf(editUnit);
    unsigned int const slice = element->delta.slice();
    if (entry == nullptr || slice > entry->sliceOffsetCount())
        return false;

    UInt64 const inEditUnit = UInt64(slice != 0 ? entry->sliceOffset(slice - 1) : 0) + element->delta.elementDelta();
    trackNumber = impl_->elements.at(inEditUnit != 0 ? element->index : 0).trackNumber;
    bodyOffset = saturatingSum(entry->streamOffset(), inEditUnit);
    return true;
}

UInt64 Seeker::elementSize(Int64 editUnit, unsigned int trackNumber)
{
    UInt32 const byteCount = impl_->firstSegment ? byteCountOf(*impl_->firstSegment) : 0;
    if (byteCount == 0)
        return 0;

    EssenceElements::Element const & element = impl_->elementOf(trackNumber);
    bool const hasEnd = impl_->firstSegment->indexDuration().value() > 0;
    if (hasEnd && impl_->entryOf(editUnit) == nullptr && !impl_->segment)
        return 0;
    if (element.index >= impl_->firstSegment->deltaEntryCount())
        return byteCount;

    DeltaEntry const & delta = element.delta;
    if (element.index + 1 == impl_->elements.size())
        return delta.elementDelta() < byteCount ? byteCount - delta.elementDelta() : byteCount;

    DeltaEntry const & next = impl_->elements.at(element.index + 1).delta;
    return next.slice() == delta.slice() && next.elementDelta() > delta.elementDelta()
               ? next.elementDelta() - delta.elementDelta()
               : byteCount;
}

Partition * Seeker::partitionContaining(UInt64 bodyOffset, Int64 editUnit)
{
    return impl_->partitionContaining(bodyOffset, editUnit);
}

IndexEntry const * Seeker::indexEntry(Int64 editUnit)
{
    return editUnit < 0 ? nullptr : impl_->entryOf(editUnit);
}

bool Seeker::gopInfo(Int64 editUnit, IndexTables::GOPInfo & info)
{
    if (indexEntry(editUnit) == nullptr)
        return false;

    PositionKeeper const keeper(impl_->container.reader.source());
    SegmentPtr const segment = impl_->segment;
    Int64 const start = segment->indexStartPosition().value();
    Int64 const duration = segment->indexDuration().value();
    auto const relative = static_cast<UInt32>(UInt64(editUnit) - UInt64(start));
    bool const hasEnd = duration > 0 && start <= LAST_EDIT_UNIT - duration;

    SegmentPtr const previous = start > 0 ? impl_->index->segment(start - 1) : SegmentPtr();
    SegmentPtr const next = hasEnd ? impl_->index->segment(start + duration) : SegmentPtr();
    if (previous || next)
        segment->updateMissingInfo(previous.get(), next.get());
    else
        segment->updateMissingIndex(relative, segment.get());
    info = segment->gopInfo(relative);
    return true;
}

unsigned int Seeker::temporalReorderingTrack() const
{
    return impl_->elements.temporalReorderingTrack();
}

int Seeker::temporalOffset(Int64 editUnit)
{
    IndexEntry const * const entry = indexEntry(editUnit);
    return entry != nullptr ? entry->temporalOffset() : 0;
}

bool Seeker::hasIndex()
{
    return impl_->editUnitByteCount != 0 || impl_->hasIndex();
}

Int64 Seeker::endOfIndex()
{
    // To see the end, all of the index has to be looked for.
    PositionKeeper const keeper(impl_->container.reader.source());
    if (impl_->index->segment(LAST_EDIT_UNIT))
        return UNKNOWN;

    SegmentPtr const last = impl_->index->lastSegment();
    if (!last || last->indexDuration().value() < 1)
        return UNKNOWN;
    Int64 end = 0;
    return __builtin_add_overflow(last->indexStartPosition().value(), last->indexDuration().value(), &end) ? UNKNOWN
                                                                                                           : end;
}

Templates::Rational<Int64> Seeker::indexEditRate()
{
    return impl_->firstSegment ? rateOf(&impl_->firstSegment->indexEditRate()) : Ratio();
}

unsigned int Seeker::editUnitByteCount() const
{
    return impl_->editUnitByteCount;
}

void Seeker::setExtent(Int64 containerSize, Ratio const & duration)
{
    bool const isWanted = impl_->bytesPerEditUnit < 0 && impl_->editUnitByteCount == 0;
    if (isWanted && containerSize >= 0 && duration > 0)
        impl_->bytesPerEditUnit = Ratio(containerSize) / duration;
}

void Seeker::reached(Int64 editUnit, UInt64 bodyOffset) noexcept
{
    impl_->highestEditUnit = std::max(impl_->highestEditUnit, editUnit);
    impl_->highestOffset = std::max(impl_->highestOffset, bodyOffset);
}

void Seeker::refresh()
{
    impl_->refresh();
}

}}
