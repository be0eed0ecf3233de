#pragma once

#include "Types/Visitors/Visitable.h"

namespace Vantry {

namespace DataIO {
class DataSink;
}

/// The values that metadata is made of: what SMPTE 377M can put into an
/// element of a set.
namespace Types {

/// Anything that an element of a metadata set can hold: a SimpleDataType or a
/// Collection.
///
/// A value is for one thread at a time.
class VANTRY_EXPORT BaseType : public Visitors::Visitable
{
public:
    ~BaseType() override;

    /// Writes the wire form.
    ///
    /// \throws Exceptions::IOError when the sink fails.
    virtual void serialize(DataIO::DataSink & sink) const = 0;

protected:
    BaseType() = default;
    BaseType(BaseType const &) = default;
    BaseType & operator=(BaseType const &) = default;
};

}
}
