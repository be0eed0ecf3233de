#include "Types/VariableSizeType.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidLength.h"
#include "KLV/Value.h"
#include "Types/DataStream.h"
#include "Types/DataValue.h"
#include "Types/ReadAvailable.h"
#include "Types/Unknown.h"

#include <limits>
#include <utility>

namespace Vantry { namespace Types {

VariableSizeType::VariableSizeType(unsigned char const * bytes, Platform::UInt64 size) : bytes_(bytes, bytes + size) {}

VariableSizeType::VariableSizeType(Templates::vector<unsigned char> bytes) noexcept : bytes_(std::move(bytes)) {}

VariableSizeType::VariableSizeType(KLV::Value & source)
{
    Platform::UInt64 const size = source.remaining();
    appendAvailable(source, bytes_);
    if (bytes_.size() < size)
        throw Exceptions::InvalidLength(bytes_.data(), bytes_.size(), "Invalid data size in Value", __FILE__, __LINE__);
}

VariableSizeType::~VariableSizeType() = default;

unsigned char const * VariableSizeType::rawBuffer() const
{
    return bytes_.data();
}

unsigned short VariableSizeType::serializedSize() const
{
    return static_cast<unsigned short>(bytes_.size());
}

unsigned int VariableSizeType::within32Bits(Platform::UInt64 size)
{
    if (size > std::numeric_limits<unsigned int>::max())
        VANTRY_FAIL(InvalidLength, "Type size exceeded");
    return static_cast<unsigned int>(size);
}

KLV::Value & VariableSizeType::within32Bits(KLV::Value & source)
{
    within32Bits(source.remaining());
    return source;
}

template class Concrete<DataStream, ByteSequence>;
template class Concrete<DataValue, ByteSequence>;
template class Concrete<Unknown, ByteSequence>;

}}
