#pragma once

#include "KLV/Value.h"
#include "Platform/BigEndian.h"
#include "Types/SimpleDataType.h"

#include <cstring>

namespace Vantry { namespace Types {

/// A simple value of `N` bytes, held inside the object.
///
/// `Base` is SimpleDataType or a class between that and this one. Concrete
/// makes a class of values out of it:
///
///     class Timestamp : public Concrete<Timestamp, FixedSizeType<SimpleDataType, 8>> { ... };
template <class Base, unsigned short N>
class VANTRY_EXPORT FixedSizeType : public Base
{
public:
    unsigned char const * rawBuffer() const override { return bytes_; }
    unsigned short serializedSize() const override { return N; }

    /// Whether all bytes are the same.
    bool equals(FixedSizeType const & other) const noexcept { return std::memcmp(bytes_, other.bytes_, N) == 0; }

    /// Order by the first byte that differs.
    bool isLess(FixedSizeType const & other) const noexcept { return std::memcmp(bytes_, other.bytes_, N) < 0; }

protected:
    /// All bytes zero.
    FixedSizeType() noexcept : bytes_() {}

    /// Copies `N` bytes. Constants made so stand in the program's data, ahead
    /// of any initialiser.
    constexpr explicit FixedSizeType(unsigned char const * bytes) noexcept : bytes_()
    {
        for (unsigned i = 0; i < N; ++i)
            bytes_[i] = bytes[i];
    }

    /// Reads `N` bytes.
    ///
    /// \throws Exceptions::InvalidLength, with those that there were.
    explicit FixedSizeType(KLV::Value & source) { source.readValue(bytes_, N); }

    unsigned char * bytes() noexcept { return bytes_; }
    unsigned char const * bytes() const noexcept { return bytes_; }

    /// The big-endian number at an offset.
    template <class T>
    T number(unsigned offset) const noexcept
    {
        return Platform::readBigEndian<T>(bytes_ + offset);
    }

    template <class T>
    void number(unsigned offset, T value) noexcept
    {
        Platform::writeBigEndian<T>(value, bytes_ + offset);
    }

private:
    unsigned char bytes_[N];
};

}}
