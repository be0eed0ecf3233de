#include "Metadata/DarkMetadataSet.h"

#include "DataIO/DataSink.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "DataIO/Slice.h"
#include "Exceptions/BadAlloc.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidLength.h"
#include "KLV/Packet.h"
#include "KLV/PacketHead.h"
#include "Types/ReadAvailable.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace Metadata {

namespace {

using Bytes = Templates::vector<unsigned char>;

DataIO::BlockHolder createBlock(UInt64 size)
{
    DataIO::BlockHolder block;
    try
    {
        block = DataIO::Memory::MemoryBlockFactory::instance().create(size);
    }
    catch (Exceptions::BadAlloc const &)
    {
        // Told below in other words.
    }
    VANTRY_CHECK_TEXT(block.block() != nullptr, "block.block () != 0", BadAlloc,
                      "Cannot create block to hold DarkMetadataSet contents.");
    return block;
}

// The length is a claim: the block is made once the bytes are there.
Templates::auto_ptr<DataIO::Slice> readWhole(KLV::Value & value)
{
    UInt64 const size = value.remaining();
    Bytes bytes;
    Types::appendAvailable(value, bytes);
    if (bytes.size() < size)
        throw Exceptions::InvalidLength(bytes.data(), bytes.size(), "Invalid data size in Value", __FILE__, __LINE__);

    DataIO::BlockHolder const block = createBlock(size);
    std::copy(bytes.begin(), bytes.end(), block.block()->data());
    return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(block.block(), 0, size));
}

}

DarkMetadataSet::DarkMetadataSet(KLV::Packet & packet) :
    DarkMetadataSet(packet.key(), packet.berLength(), packet.value())
{
}

DarkMetadataSet::DarkMetadataSet(KLV::Key const & key, unsigned char berLength, KLV::Value & value) :
    key_(key), berLength_(berLength), value_(readWhole(value))
{
}

DarkMetadataSet::~DarkMetadataSet() = default;

void DarkMetadataSet::value(Templates::auto_ptr<DataIO::Slice> value) noexcept
{
    value_ = std::move(value);
}

UInt64 DarkMetadataSet::serializedSize() const noexcept
{
    return key_.serializedSize() + berLength_ + value_->size();
}

void DarkMetadataSet::serialize(DataIO::DataSink & sink) const
{
    KLV::writePacketHead(sink, key_, value_->size(), berLength_);
    sink.write(value_->begin(), value_->size());
}

}}
