#include "DataIO/Chain.h"

#include "DataIO/BlockHolder.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace DataIO {

Chain::Chain() noexcept = default;

Chain::~Chain()
{
    clear();
}

void Chain::clear() noexcept
{
    for (iterator i = begin(); i != end();)
        delete (i++).slice();
    SliceList::clear();
}

UInt64 Chain::data_size() const noexcept
{
    UInt64 size = 0;
    for (Slice const & slice : *this)
        size += slice.size();
    return size;
}

UInt64 Chain::slice_count() const noexcept
{
    return size();
}

void Chain::push_front(Templates::auto_ptr<Slice> slice)
{
    SliceList::push_front(slice.release());
}

void Chain::push_back(Templates::auto_ptr<Slice> slice)
{
    if (slice->size() == 0)
        return;
    if (!empty() && previous()->merge(*slice))
        return;
    SliceList::push_back(slice.release());
}

void Chain::push_front(Chain & chain) noexcept
{
    move(begin(), chain);
}

void Chain::push_back(Chain & chain) noexcept
{
    move(end(), chain);
}

Templates::auto_ptr<Slice> Chain::erase(iterator position)
{
    SliceList::erase(position);
    return Templates::auto_ptr<Slice>(position.slice());
}

Templates::auto_ptr<Slice> Chain::makeSlice(UInt64 offset, UInt64 size) const
{
    Place const base = findBase(offset);
    if (base.first == end())
        return Templates::auto_ptr<Slice>(new Slice);

    // A range that no number can end lies beyond any chain.
    UInt64 const most = std::numeric_limits<UInt64>::max() - offset;
    Place const last = findBase(offset + std::min(size, most));
    if (base.first == last.first)
        return makeSliceFromSingleSlice(*base.first, base.second, last.second);
    return makeSliceFromSeveralSlices(base, last);
}

void Chain::chopBegin(UInt64 howMuch, Chain & destination)
{
    while (howMuch > 0 && !empty())
    {
        Slice & first = *begin();
        if (first.size() <= howMuch)
        {
            howMuch -= first.size();
            destination.push_back(erase(begin()));
            continue;
        }

        Templates::auto_ptr<Slice> part(new Slice(first));
        first.cropBegin(howMuch);
        part->cropEnd(part->size() - howMuch);
        destination.push_back(part);
        return;
    }
}

void Chain::chopEnd(UInt64 howMuch, Chain & destination)
{
    while (howMuch > 0 && !empty())
    {
        Slice & last = *previous();
        if (last.size() <= howMuch)
        {
            howMuch -= last.size();
            destination.push_front(erase(iterator(&last)));
            continue;
        }

        destination.push_front(last.splice(last.end() - howMuch));
        return;
    }
}

// A position on a seam belongs to the slice that ends there.
Chain::Place Chain::findBase(UInt64 position) const noexcept
{
    UInt64 before = 0;
    for (const_iterator i = begin(); i != end(); ++i)
    {
        if (position - before <= i->size())
            return Place(i, position - before);
        before += i->size();
    }
    return Place(end(), 0);
}

Templates::auto_ptr<Slice> Chain::makeSliceFromSingleSlice(Slice const & slice, UInt64 begin, UInt64 end)
{
    Templates::auto_ptr<Slice> result(new Slice(slice));
    result->cropEnd(slice.size() - end);
    result->cropBegin(begin);
    return result;
}

Templates::auto_ptr<Slice> Chain::makeSliceFromSeveralSlices(Place base, Place last) const
{
    // Counted anew: the size that was asked for may be a claim, and no more
    // is allocated than the chain can fill.
    UInt64 size = last.second - base.second;
    for (const_iterator i = base.first; i != last.first; ++i)
        size += i->size();

    BlockHolder const block = base.first->block()->createBlock(size);
    unsigned char * to = block.block()->data();
    UInt64 from = base.second;
    for (const_iterator i = base.first; i != last.first; ++i)
    {
        to = std::copy(i->begin() + from, i->end(), to);
        from = 0;
    }
    if (last.first != end())
        std::copy_n(last.first->begin(), last.second, to);

    return Templates::auto_ptr<Slice>(new Slice(block.block(), 0, size));
}

}}
