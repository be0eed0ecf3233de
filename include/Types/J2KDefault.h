#pragma once

#include "Types/DataStream.h"
#include "Types/VariableSizeType.h"

namespace Vantry { namespace Types {

/// Coding parameters from a JPEG 2000 codestream (ISO/IEC 15444-1): a few
/// bytes at the head and a tail of any length.
class VANTRY_EXPORT J2KDefault : public VariableSizeType
{
protected:
    /// The tail begins at `headSize`; the bytes reach up to there at least.
    J2KDefault(Templates::vector<unsigned char> bytes, unsigned headSize);

    /// Reads all that remains, which is more than the head.
    J2KDefault(KLV::Value & source, unsigned headSize);

    DataStream const & tail() const noexcept { return tail_; }

private:
    DataStream tail_;
};

}}
