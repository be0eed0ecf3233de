#include "DataIO/SliceList.h"

namespace Vantry { namespace DataIO {

SliceList::SliceList() noexcept
{
    SliceList::clear();
}

SliceList::~SliceList() = default;

UInt64 SliceList::size() const noexcept
{
    UInt64 count = 0;
    for (const_iterator i = begin(); i != end(); ++i)
        ++count;
    return count;
}

void SliceList::clear() noexcept
{
    next(this);
    previous(this);
}

void SliceList::push_front(Slice * slice) noexcept
{
    insert(begin(), slice);
}

void SliceList::push_back(Slice * slice) noexcept
{
    insert(end(), slice);
}

SliceList::iterator SliceList::insert(iterator position, Slice * slice) noexcept
{
    Slice * const after = position.slice();
    Slice * const before = after->previous();
    slice->next(after);
    slice->previous(before);
    before->next(slice);
    after->previous(slice);
    return iterator(slice);
}

SliceList::iterator SliceList::erase(iterator position) noexcept
{
    Slice * const before = position->previous();
    Slice * const after = position->next();
    before->next(after);
    after->previous(before);
    return iterator(after);
}

void SliceList::move(iterator position, SliceList & from) noexcept
{
    if (from.empty())
        return;

    Slice * const after = position.slice();
    Slice * const before = after->previous();
    Slice * const first = from.next();
    Slice * const last = from.previous();
    before->next(first);
    first->previous(before);
    last->next(after);
    after->previous(last);
    from.clear();
}

}}
