#include "IndexTables/IndexEntryArray.h"

#include "Exceptions/Check.h"
#include "Exceptions/IndexOutOfBounds.h"
#include "Exceptions/InvalidElement.h"
#include "IndexTables/EntryList.h"

#include <cstddef>

namespace Vantry { namespace IndexTables {

namespace {

signed char const NO_KEY_FRAME_OFFSET = 127;

char const * const DIFFERENT_SIZE = "Mismatch between Index Entry Array size and size based on SliceCount, "
                                    "PosTableCount and number of entries (NIE/NDE).";

void mendKeyFrameOffset(IndexEntry & entry, std::size_t place)
{
    if (entry.keyFrameOffset() == NO_KEY_FRAME_OFFSET)
        entry.keyFrameOffset(static_cast<signed char>(static_cast<unsigned char>(0 - place)));
}

}

IndexEntryArray::IndexEntryArray(unsigned char sliceCount, unsigned char posTableCount) :
    entries_(new EntryList<IndexEntry>(IndexEntry::sizeOf(sliceCount, posTableCount)))
{
}

IndexEntryArray::IndexEntryArray(KLV::Value & value, unsigned char sliceCount, unsigned char posTableCount) :
    entries_(
        new EntryList<IndexEntry>(EntryArrayBytes(value, IndexEntry::sizeOf(sliceCount, posTableCount), DIFFERENT_SIZE),
                                  mendKeyFrameOffset, sliceCount, posTableCount))
{
}

IndexEntryArray::~IndexEntryArray()
{
    delete entries_;
}

UInt64 IndexEntryArray::serializedSize() const
{
    return entries_->serializedSize();
}

void IndexEntryArray::serialize(DataIO::DataSink & sink) const
{
    entries_->serialize(sink);
}

unsigned int IndexEntryArray::size() const
{
    return entries_->size();
}

unsigned int IndexEntryArray::elementSize() const
{
    return entries_->entrySize();
}

IndexEntry & IndexEntryArray::at(unsigned int index)
{
    if (index >= size())
        VANTRY_FAIL(IndexOutOfBounds, "Trying to access an element beyond the end of the data");
    return (*entries_)[index];
}

IndexEntry const & IndexEntryArray::at(unsigned int index) const
{
    if (index >= size())
        VANTRY_FAIL(IndexOutOfBounds, "IndexEntryArray::at() IndexOutOfBonds");
    return (*entries_)[index];
}

void IndexEntryArray::remove(unsigned int index)
{
    if (index >= size())
        VANTRY_FAIL(IndexOutOfBounds, "Trying to remove an element beyond the end of the data");
    entries_->remove(index);
}

void IndexEntryArray::append(IndexEntry const & entry)
{
    if (!entries_->fits(entry))
        VANTRY_FAIL(InvalidElement, "Trying to append an invalid element");
    entries_->insert(size(), entry);
}

void IndexEntryArray::insertAt(unsigned int index, IndexEntry const & entry)
{
    if (!entries_->fits(entry))
        VANTRY_FAIL(InvalidElement, "TRying to insert an invalid element");
    if (index > size())
        VANTRY_FAIL(IndexOutOfBounds, "Trying to insert an element beyond the end of the data");
    entries_->insert(index, entry);
}

}}
