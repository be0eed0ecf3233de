#pragma once

#include "Types/ByteSequence.h"
#include "Types/Concrete.h"

namespace Vantry { namespace Types {

/// Opaque data that is a value in itself.
class VANTRY_EXPORT DataValue : public Concrete<DataValue, ByteSequence>
{
public:
    /// Reads all that remains.
    ///
    /// \throws Exceptions::InvalidLength when that is 4 GiB or more, or when the source
    ///         ends before; then it carries the bytes that there were.
    explicit DataValue(KLV::Value & source) : Concrete(within32Bits(source)) {}

    /// Copies `size` bytes.
    DataValue(unsigned char const * bytes, unsigned int size) : Concrete(bytes, size) {}
};

extern template class Concrete<DataValue, ByteSequence>;

}}
