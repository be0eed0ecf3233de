#include "IndexTables/IndexTable.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidID.h"
#include "IndexTables/IndexTableSegment.h"
#include "IndexTables/SegmentPlaces.h"
#include "Templates/Containers.h"

#include <memory>

namespace Vantry { namespace IndexTables {

class IndexTable::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(unsigned int index, unsigned int body) : indexSID(index), bodySID(body) {}

    unsigned int indexSID;
    unsigned int bodySID;
    Templates::vector<std::unique_ptr<IndexTableSegment>> segments;
    SegmentPlaces places;
};

IndexTable::IndexTable(unsigned int indexSID, unsigned int bodySID) : impl_(new Impl(indexSID, bodySID)) {}

IndexTable::~IndexTable()
{
    delete impl_;
}

void IndexTable::add(Templates::auto_ptr<IndexTableSegment> segment, bool allowDuplicates)
{
    if (segment->bodySID().value() != impl_->bodySID)
        VANTRY_FAIL(InvalidID, "Trying to load a IndexTable segment into a IndexTable with different bodySIDs");
    if (segment->indexSID() && segment->indexSID()->value() != impl_->indexSID)
        VANTRY_FAIL(InvalidID, "Trying to load a IndexTable segment into a IndexTable with different indexSIDs");

    Int64 const start = segment->indexStartPosition().value();
    Int64 const duration = segment->indexDuration().value();
    if (!allowDuplicates && impl_->places.contains(start, duration))
        return;

    impl_->segments.emplace_back(segment.release());
    impl_->places.add(start, duration);
}

IndexTableSegment * IndexTable::find(Int64 position) const
{
    std::size_t const found = impl_->places.find(position);
    return found == SegmentPlaces::NONE ? nullptr : impl_->segments[found].get();
}

unsigned int IndexTable::bodySID() const
{
    return impl_->bodySID;
}

unsigned int IndexTable::indexSID() const
{
    return impl_->indexSID;
}

unsigned int IndexTable::size() const
{
    return static_cast<unsigned int>(impl_->segments.size());
}

}}
