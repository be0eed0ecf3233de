#include "GenericContainer/DefaultIndexTableGenerator.h"

#include "DataIO/Memory/MemoryDataSink.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidState.h"
#include "Exceptions/InvalidValue.h"
#include "GenericContainer/IndexSegmentInfo.h"
#include "GenericContainer/IndexSegmentLayout.h"
#include "IndexTables/IndexEntry.h"
#include "IndexTables/IndexTableSegment.h"
#include "Templates/Containers.h"
#include "Templates/SafeCast.h"
#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"

#include <cstddef>
#include <optional>

namespace Vantry { namespace GenericContainer {

namespace {

unsigned char const LENGTH_FIELD_SIZE = 4;

// A local set has at most 64 KB; the rest is for what isn't an index entry.
UInt64 const FULL_SEGMENT = 64512;

// A segment that gets no more entries. Its wire form takes half the memory.
using ClosedSegment = Templates::SharedPtr<DataIO::Memory::MemoryDataSink>;

ClosedSegment closedSegment(IndexTables::IndexTableSegment const & segment)
{
    ClosedSegment closed(new DataIO::Memory::MemoryDataSink(segment.serializedSize()));
    segment.serialize(*closed);
    return closed;
}

}

// Segments go by their places: the closed ones, then the current one.
class DefaultIndexTableGenerator::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    void setUp(IndexSegmentInfo const & newInfo)
    {
        VANTRY_CHECK_TEXT(!info_, "indexSegmentInfo_.get () == 0", InvalidState,
                          "DefaultIndexTableGenerator was already configured.");
        VANTRY_CHECK_TEXT(!isInUse_, "!initialized_", InvalidState,
                          "Unable to configue Index Segment that was already used.");
        info_ = newInfo;
    }

    // Comes ahead of each use.
    void prepare()
    {
        if (isInUse_)
            return;
        if (info_)
            type = resolvedType(type, *info_);
        isInUse_ = true;
        update();
    }

    bool makesNone() const { return duringEssence == MXFIO::INDEX_NONE && afterEssence == MXFIO::INDEX_NONE; }
    bool isConstant() const { return info_ && isConstantType(type); }
    IndexTables::IndexTableSegment const * current() const { return current_.get(); }
    IndexSegmentLayout const * layout() const { return layout_ ? &*layout_ : nullptr; }

    void update()
    {
        if (makesNone() || (isConstant() && current_))
            return;

        if (current_)
            current_->indexDuration(static_cast<Int64>(nextStart) - current_->indexStartPosition().value());
        Templates::auto_ptr<IndexTables::IndexTableSegment> next = makeSegment();
        if (current_ && current_->indexEntryCount() != 0)
            closed_.push_back(closedSegment(*current_));
        current_ = next;
        if (duringEssence == MXFIO::INDEX_FOLLOWING && afterEssence == MXFIO::INDEX_FOLLOWING)
            dropWritten();
    }

    void add(IndexTables::IndexEntry const & entry)
    {
        if (!current_)
            update();
        current_->addIndexEntry(current_->indexEntryCount(), entry);
    }

    UInt64 byteCount(bool isAfterEssence) const
    {
        MXFIO::IndexTableGeneration const strategy = isAfterEssence ? afterEssence : duringEssence;
        if (!isAfterEssence && strategy == MXFIO::INDEX_FOLLOWING && isConstant() && lastWritten_)
            return 0;

        UInt64 size = 0;
        forEachToWrite(strategy, [&](std::size_t, auto const & segment) { size += segment.serializedSize(); });
        return size;
    }

    void write(bool isAfterEssence, DataIO::DataSink & sink)
    {
        forEachToWrite(isAfterEssence ? afterEssence : duringEssence,
                       [&](std::size_t place, auto const & segment)
                       {
                           writeTo(sink, segment);
                           lastWritten_ = place;
                       });
    }

    UInt32 bodySID = 0;
    UInt32 indexSID = 0;
    MXFIO::IndexTableGeneration duringEssence = MXFIO::INDEX_NONE;
    MXFIO::IndexTableGeneration afterEssence = MXFIO::INDEX_NONE;
    MXFIO::IndexTableSegmentType type = MXFIO::INDEX_AUTOMATIC;

    // Where the segment that comes next starts.
    UInt64 nextStart = 0;

private:
    Templates::auto_ptr<IndexTables::IndexTableSegment> makeSegment()
    {
        VANTRY_CHECK_TEXT(info_, "indexSegmentInfo_.get () != 0", InvalidState,
                          "Default implementation of IndexTableGenerator was already configured.");
        if (!layout_)
            layout_.emplace(*info_, type);

        Templates::auto_ptr<IndexTables::IndexTableSegment> segment(
            new IndexTables::IndexTableSegment(LENGTH_FIELD_SIZE));
        segment->bodySID(bodySID);
        segment->indexSID(indexSID);
        segment->indexEditRate({info_->indexRate.numerator(), info_->indexRate.denominator()});
        segment->indexStartPosition(static_cast<Int64>(nextStart));
        layout_->fill(*segment);
        return segment;
    }

    // Drops what partitions to come won't have: they begin with the segment
    // that was written last.
    void dropWritten()
    {
        if (!lastWritten_)
            return;
        closed_.erase(closed_.begin(), closed_.begin() + static_cast<std::ptrdiff_t>(*lastWritten_));
        lastWritten_ = 0;
    }

    template <class Action>
    void forEachToWrite(MXFIO::IndexTableGeneration strategy, Action action) const
    {
        if (strategy == MXFIO::INDEX_NONE)
            return;

        bool const isFollowing = strategy == MXFIO::INDEX_FOLLOWING && !isConstant();
        std::size_t place = isFollowing ? lastWritten_.value_or(0) : 0;
        for (; place < closed_.size(); ++place)
            action(place, *closed_[place]);
        if (current_ && (isConstant() || current_->indexEntryCount() != 0))
            action(place, *current_);
    }

    static void writeTo(DataIO::DataSink & sink, DataIO::Memory::MemoryDataSink const & closed)
    {
        sink.write(closed.rawBuffer(), closed.serializedSize());
    }

    static void writeTo(DataIO::DataSink & sink, IndexTables::IndexTableSegment const & current)
    {
        current.serialize(sink);
    }

    std::optional<IndexSegmentInfo> info_;
    bool isInUse_ = false;
    std::optional<IndexSegmentLayout> layout_;
    Templates::vector<ClosedSegment> closed_;
    Templates::auto_ptr<IndexTables::IndexTableSegment> current_;
    std::optional<std::size_t> lastWritten_;
};

DefaultIndexTableGenerator::DefaultIndexTableGenerator() : impl_(new Impl) {}

DefaultIndexTableGenerator::~DefaultIndexTableGenerator()
{
    delete impl_;
}

void DefaultIndexTableGenerator::setupIndexSegments(IndexSegmentInfo const & info)
{
    impl_->setUp(info);
}

void DefaultIndexTableGenerator::currentContentInfo(UInt64 editUnits, UInt64)
{
    impl_->nextStart = editUnits;
}

unsigned char DefaultIndexTableGenerator::posTableCount() const
{
    impl_->prepare();
    IndexSegmentLayout const * const layout = impl_->layout();
    return layout != nullptr ? layout->posTableCount() : 0;
}

unsigned char DefaultIndexTableGenerator::sliceCount() const
{
    impl_->prepare();
    IndexSegmentLayout const * const layout = impl_->layout();
    return layout != nullptr ? layout->sliceCount() : 0;
}

void DefaultIndexTableGenerator::writeIndexEntry(IndexTables::IndexEntry const & entry)
{
    impl_->prepare();
    if (impl_->makesNone() || impl_->isConstant())
        return;
    if (isCurrentFull())
        impl_->update();
    impl_->add(entry);
}

void DefaultIndexTableGenerator::updateIndex()
{
    impl_->prepare();
    impl_->update();
}

unsigned int DefaultIndexTableGenerator::rawIndexByteCount(bool afterEssence) const
{
    impl_->prepare();
    return Templates::SafeCast<UInt32, Exceptions::InvalidValue>(impl_->byteCount(afterEssence));
}

void DefaultIndexTableGenerator::writeIndexSegments(bool afterEssence, DataIO::DataSink & sink)
{
    impl_->prepare();
    impl_->write(afterEssence, sink);
}

MXFIO::IndexTableSegmentType DefaultIndexTableGenerator::indexSegmentType() const
{
    impl_->prepare();
    return impl_->type;
}

bool DefaultIndexTableGenerator::indexesAfterEndOfEssence() const
{
    impl_->prepare();
    switch (impl_->afterEssence)
    {
    case MXFIO::INDEX_NONE:
        return false;
    case MXFIO::INDEX_FOLLOWING:
    case MXFIO::INDEX_REPEATED:
        return true;
    default:
        return !impl_->isConstant();
    }
}

void DefaultIndexTableGenerator::indexSID(unsigned int indexSID)
{
    impl_->indexSID = indexSID;
}

void DefaultIndexTableGenerator::bodySID(unsigned int bodySID)
{
    impl_->bodySID = bodySID;
}

void DefaultIndexTableGenerator::indexStrategies(MXFIO::IndexTableGeneration duringEssence,
                                                 MXFIO::IndexTableGeneration afterEssence,
                                                 MXFIO::IndexTableSegmentType segmentType)
{
    impl_->duringEssence = duringEssence;
    impl_->afterEssence = afterEssence;
    impl_->type = segmentType;
}

bool DefaultIndexTableGenerator::isCurrentFull() const
{
    IndexTables::IndexTableSegment const * const current = impl_->current();
    return current != nullptr && current->serializedSize() > FULL_SEGMENT;
}

}}
