#pragma once

#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Types/SimpleDataType.h"

namespace Vantry {

namespace KLV {
class Value;
}

namespace Types {

/// A simple value of as many bytes as it was made with.
class VANTRY_EXPORT VariableSizeType : public SimpleDataType
{
public:
    ~VariableSizeType() override;

    unsigned char const * rawBuffer() const override;

    /// Bytes of the value, in 16 bits: the size of a longer one wraps, and so
    /// does what `serialize` writes of it.
    unsigned short serializedSize() const override;

    /// Compare byte by byte.
    bool equals(VariableSizeType const & other) const { return bytes_ == other.bytes_; }
    bool isLess(VariableSizeType const & other) const { return bytes_ < other.bytes_; }

protected:
    /// Copies `size` bytes.
    VariableSizeType(unsigned char const * bytes, Platform::UInt64 size);

    explicit VariableSizeType(Templates::vector<unsigned char> bytes) noexcept;

    /// Reads all that remains.
    ///
    /// \throws Exceptions::InvalidLength when the source ends before; it
    ///         carries the bytes that there were.
    explicit VariableSizeType(KLV::Value & source);

    VariableSizeType(VariableSizeType const &) = default;
    VariableSizeType & operator=(VariableSizeType const &) = default;

    Templates::vector<unsigned char> const & bytes() const noexcept { return bytes_; }

    /// The size itself.
    ///
    /// \throws Exceptions::InvalidLength for 4 GiB and more.
    static unsigned int within32Bits(Platform::UInt64 size);

    /// The source itself.
    ///
    /// \throws Exceptions::InvalidLength when 4 GiB or more remain.
    static KLV::Value & within32Bits(KLV::Value & source);

private:
    Templates::vector<unsigned char> bytes_;
};

}
}
