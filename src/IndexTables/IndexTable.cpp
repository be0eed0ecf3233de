#include "IndexTables/IndexTable.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidID.h"
#include "IndexTables/IndexTableSegment.h"
#include "IndexTables/SegmentMap.h"

#include <memory>

namespace Vantry { namespace IndexTables {

class IndexTable::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(unsigned int index, unsigned int body) : indexSID(index), bodySID(body) {}

    unsigned int indexSID;
    unsigned int bodySID;
    SegmentMap<std::unique_ptr<IndexTableSegment>> segments;
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

    if (allowDuplicates || !impl_->segments.hasLike(*segment))
        impl_->segments.add(std::unique_ptr<IndexTableSegment>(segment.release()));
}

IndexTableSegment * IndexTable::find(Int64 position) const
{
    auto const * const found = impl_->segments.find(position);
    return found ? found->get() : nullptr;
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
