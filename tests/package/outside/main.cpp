// A small application outside the tree. It names headers in both forms, walks
// packets, and catches what the library throws.

#include "DataIO/Memory/MemoryDataSource.h"
#include "KLV/Packet.h"
#include <Vantry/Exceptions/KeyNotFound.h>
#include <Vantry/KLV/Reader.h>

#if __has_include("Exceptions/Check.h") || __has_include(<Vantry/Exceptions/Check.h>)
#error "internal headers are installed"
#endif

using namespace Vantry;

int main()
{
    unsigned char const stream[] = {
        0x06, 0x0E, 0x2B, 0x34, 0x01, 0x01, 0x01, 0x01, 0x03, 0x01, 0x02, 0x10, 0x01, 0x00, 0x00, 0x00, // key
        0x02,                                                                                           // length
        0x00, 0x00,                                                                                     // value
        0xBA, 0xDB, 0xAD, 0xBA, 0xDB, 0xAD,                                                             // no key
    };
    DataIO::Memory::MemoryDataSource source(stream, sizeof(stream));
    KLV::Reader reader(source);

    UInt64 skipped = 0;
    if (reader.nextKLV(skipped, 0)->length() != 2)
        return 1;

    try
    {
        reader.nextKLV(skipped, 0);
    }
    catch (Exceptions::KeyNotFound const &)
    {
        return 0;
    }
    return 2;
}
