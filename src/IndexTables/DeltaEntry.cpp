#include "IndexTables/DeltaEntry.h"

#include "DataIO/DataSink.h"
#include "KLV/Value.h"
#include "Platform/BigEndian.h"

#include <array>

namespace Vantry { namespace IndexTables {

namespace {

using Wire = std::array<unsigned char, DeltaEntry::SIZE>;

Wire read(KLV::Value & value)
{
    Wire bytes;
    value.readValue(bytes.data(), bytes.size());
    return bytes;
}

}

DeltaEntry::DeltaEntry(KLV::Value & value) : DeltaEntry(read(value).data()) {}

DeltaEntry::DeltaEntry(unsigned char const * bytes) noexcept :
    elementDelta_(Platform::readBigEndian<UInt32>(bytes + 2)),
    posTableIndex_(static_cast<signed char>(bytes[0])),
    slice_(bytes[1])
{
}

void DeltaEntry::write(unsigned char * bytes) const noexcept
{
    bytes[0] = static_cast<unsigned char>(posTableIndex_);
    bytes[1] = slice_;
    Platform::writeBigEndian<UInt32>(elementDelta_, bytes + 2);
}

void DeltaEntry::serialize(DataIO::DataSink & sink) const
{
    Wire bytes;
    write(bytes.data());
    sink.write(bytes.data(), bytes.size());
}

}}
