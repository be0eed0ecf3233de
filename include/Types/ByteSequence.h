#pragma once

#include "Types/VariableSizeType.h"

namespace Vantry { namespace Types {

/// A value that is bytes and nothing else: DataValue, DataStream and Unknown.
class VANTRY_EXPORT ByteSequence : public VariableSizeType
{
public:
    /// The bytes.
    Templates::vector<unsigned char> const & value() const noexcept { return bytes(); }

protected:
    using VariableSizeType::VariableSizeType;
};

}}
