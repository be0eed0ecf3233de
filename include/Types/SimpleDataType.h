#pragma once

#include "Templates/auto_ptr.h"
#include "Types/BaseType.h"

namespace Vantry { namespace Types {

/// A value that is one run of bytes.
///
/// It is kept in its wire form, big-endian, and decoded when asked: what is
/// read from a file and written again is the same bytes.
class VANTRY_EXPORT SimpleDataType : public BaseType
{
public:
    /// What `clone` gives a pointer to.
    using Cloned = SimpleDataType;

    ~SimpleDataType() override;

    /// Writes `serializedSize` bytes from `rawBuffer`.
    ///
    /// \throws Exceptions::IOError when the sink fails.
    void serialize(DataIO::DataSink & sink) const override;

    /// The wire form; it stays in place until the value changes or goes.
    virtual unsigned char const * rawBuffer() const = 0;

    /// Bytes of the wire form, in 16 bits: longer values wrap.
    virtual unsigned short serializedSize() const = 0;

    /// A copy of the value, of the same class.
    ///
    /// \throws Exceptions::BadAlloc.
    virtual Templates::auto_ptr<SimpleDataType> clone() const = 0;

protected:
    SimpleDataType() = default;
    SimpleDataType(SimpleDataType const &) = default;
    SimpleDataType & operator=(SimpleDataType const &) = default;
};

}}
