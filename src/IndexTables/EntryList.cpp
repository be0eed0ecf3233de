#include "IndexTables/EntryList.h"

#include "Exceptions/Check.h"
#include "KLV/Value.h"
#include "Types/ReadAvailable.h"

namespace Vantry { namespace IndexTables {

namespace {

[[noreturn]] void failLength(unsigned char const * read, UInt64 size, char const * text)
{
    throw Exceptions::InvalidLength(read, size, text, __FILE__, __LINE__);
}

}

EntryArrayBytes::EntryArrayBytes(KLV::Value & value, unsigned int expectedSize, char const * differenceText)
{
    unsigned char head[HEAD_SIZE];
    UInt64 const headRead = Types::readAvailable(value, head, HEAD_SIZE);
    if (headRead < HEAD_SIZE)
        failLength(head, headRead,
                   "Invalid data size in the Index Table collection. Not enough data to read element entry size");

    count = Platform::readBigEndian<UInt32>(head);
    entrySize = Platform::readBigEndian<UInt32>(head + 4);
    UInt64 const size = UInt64(count) * entrySize;
    if (value.remaining() < size)
        failLength(head, HEAD_SIZE,
                   "Number of expected values differ from the size of the local KLV value field. Index Table Segment");
    VANTRY_CHECK_TEXT(size == UInt64(count) * expectedSize, "expectedArrayLength == calculatedArrayLength",
                      InvalidLength, differenceText);

    KLV::Value window(value, size);
    Types::appendAvailable(window, entries);
}

}}
