#pragma once

#include "Types/ByteSequence.h"
#include "Types/Concrete.h"

namespace Vantry { namespace Types {

/// A value of a type that is not known: the bytes as they came.
class VANTRY_EXPORT Unknown : public Concrete<Unknown, ByteSequence>
{
public:
    /// Reads all that remains.
    ///
    /// \throws Exceptions::InvalidLength when the source ends before; it
    ///         carries the bytes that there were.
    explicit Unknown(KLV::Value & source) : Concrete(source) {}

    /// Copies `size` bytes.
    Unknown(unsigned char const * bytes, unsigned int size) : Concrete(bytes, size) {}
};

extern template class Concrete<Unknown, ByteSequence>;

}}
