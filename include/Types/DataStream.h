#pragma once

#include "Types/ByteSequence.h"
#include "Types/Concrete.h"

namespace Vantry { namespace Types {

/// Opaque data, as streams of it are carried in metadata.
class VANTRY_EXPORT DataStream : public Concrete<DataStream, ByteSequence>
{
public:
    /// Reads all that remains.
    ///
    /// \throws Exceptions::InvalidLength when that is 4 GiB or more, or when the source
    ///         ends before; then it carries the bytes that there were.
    explicit DataStream(KLV::Value & source) : Concrete(within32Bits(source)) {}

    /// Copies `size` bytes.
    DataStream(unsigned char const * bytes, unsigned int size) : Concrete(bytes, size) {}
};

extern template class Concrete<DataStream, ByteSequence>;

}}
