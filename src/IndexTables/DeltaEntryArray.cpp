#include "IndexTables/DeltaEntryArray.h"

#include "Exceptions/Check.h"
#include "Exceptions/IndexOutOfBounds.h"
#include "Exceptions/InvalidElement.h"
#include "IndexTables/EntryList.h"

#include <cstddef>

namespace Vantry { namespace IndexTables {

namespace {

char const * const DIFFERENT_SIZE =
    "Mismatch between Delta Entry Array size and size based on number of entries (NIE/NDE).";

void check(bool isInside)
{
    if (!isInside)
        VANTRY_FAIL(IndexOutOfBounds, "Trying to access a element beyond the end of data");
}

}

DeltaEntryArray::DeltaEntryArray() : entries_(new EntryList<DeltaEntry>(DeltaEntry::SIZE)) {}

DeltaEntryArray::DeltaEntryArray(KLV::Value & value) :
    entries_(new EntryList<DeltaEntry>(EntryArrayBytes(value, DeltaEntry::SIZE, DIFFERENT_SIZE),
                                       [](DeltaEntry &, std::size_t) {}))
{
}

DeltaEntryArray::~DeltaEntryArray()
{
    delete entries_;
}

UInt64 DeltaEntryArray::serializedSize() const
{
    return entries_->serializedSize();
}

void DeltaEntryArray::serialize(DataIO::DataSink & sink) const
{
    entries_->serialize(sink);
}

unsigned int DeltaEntryArray::size() const
{
    return entries_->size();
}

unsigned int DeltaEntryArray::elementSize() const
{
    return entries_->entrySize();
}

DeltaEntry & DeltaEntryArray::at(unsigned int index)
{
    check(index < size());
    return (*entries_)[index];
}

DeltaEntry const & DeltaEntryArray::at(unsigned int index) const
{
    check(index < size());
    return (*entries_)[index];
}

void DeltaEntryArray::remove(unsigned int index)
{
    check(index < size());
    entries_->remove(index);
}

void DeltaEntryArray::append(DeltaEntry const & entry)
{
    insertAt(size(), entry);
}

void DeltaEntryArray::insertAt(unsigned int index, DeltaEntry const & entry)
{
    if (!entries_->fits(entry))
        VANTRY_FAIL(InvalidElement, "Trying to append an invalid entry.");
    check(index <= size());
    entries_->insert(index, entry);
}

}}
