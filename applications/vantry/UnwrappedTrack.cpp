#include "UnwrappedTrack.h"

#include "BlockSource.h"

namespace Vantry { namespace Application {

void UnwrappedTrack::take(BlockSource & source, UInt64 size)
{
    while (size > 0)
    {
        BytesInMemory const lent = source.lend(size);
        if (lent.size == 0)
            break;
        output_->append(lent.bytes, lent.size);
        size -= lent.size;
    }
    isEmpty_ = false;
    output_->endElement();
}

void UnwrappedTrack::countEditUnit(Int64 editUnit)
{
    if (editUnit != lastEditUnit_)
        ++editUnits_;
    lastEditUnit_ = editUnit;
}

}}
