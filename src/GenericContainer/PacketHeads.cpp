#include "GenericContainer/PacketHeads.h"

#include "ByteCoders/BER.h"
#include "DataIO/Chain.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidLength.h"
#include "KLV/FillItem.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace Vantry { namespace GenericContainer {

namespace {

UInt64 const HEADS_BLOCK_SIZE = 4096;
UInt64 const ZEROS_BLOCK_SIZE = 65536;

Templates::string tooLong(UInt64 length, unsigned int lengthSize)
{
    return ("A value of " + std::to_string(length) + " bytes has no room in a length field of " +
            std::to_string(lengthSize) + " bytes")
        .c_str();
}

DataIO::BlockHolder createBlock(UInt64 size)
{
    return DataIO::Memory::MemoryBlockFactory::instance().create(size);
}

}

PacketHeads::PacketHeads() : heads_(createBlock(HEADS_BLOCK_SIZE)), used_(0), zeros_(createBlock(ZEROS_BLOCK_SIZE))
{
    std::memset(zeros_.block()->data(), 0, ZEROS_BLOCK_SIZE);
}

Templates::auto_ptr<DataIO::Slice> PacketHeads::head(KLV::Key const & key, UInt64 length, unsigned char lengthSize)
{
    if (ByteCoders::calculateBERSize(length) > lengthSize)
        VANTRY_FAIL(InvalidLength, tooLong(length, lengthSize));

    UInt64 const size = UInt64(key.size()) + lengthSize;
    if (HEADS_BLOCK_SIZE - used_ < size)
    {
        heads_ = createBlock(HEADS_BLOCK_SIZE);
        used_ = 0;
    }

    Templates::auto_ptr<DataIO::Slice> slice(new DataIO::Slice(heads_.block(), used_, size));
    unsigned char * const bytes = heads_.block()->data() + used_;
    std::memcpy(bytes, key.rawBuffer(), key.size());
    ByteCoders::codeBER(length, lengthSize, bytes + key.size());
    used_ += size;
    return slice;
}

void PacketHeads::filler(UInt64 size, unsigned char lengthSize, DataIO::Chain & chain)
{
    KLV::Key const & key = KLV::fillItemKey();
    UInt64 rest = size - key.size() - lengthSize;
    chain.push_back(head(key, rest, lengthSize));
    while (rest != 0)
    {
        UInt64 const taken = std::min(rest, ZEROS_BLOCK_SIZE);
        chain.push_back(Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(zeros_.block(), 0, taken)));
        rest -= taken;
    }
}

}}
