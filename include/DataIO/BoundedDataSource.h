#pragma once

#include "DataIO/DataSource.h"

namespace Vantry { namespace DataIO {

/// A source that knows where it ends.
class VANTRY_EXPORT BoundedDataSource : public DataSource
{
public:
    ~BoundedDataSource() override;

    /// Bytes from here to the end.
    virtual UInt64 remaining() const = 0;

    /// Moves to the end.
    virtual void discard() = 0;
};

}}
