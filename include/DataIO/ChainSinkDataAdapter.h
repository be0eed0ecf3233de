#pragma once

#include "DataIO/ChainSink.h"

namespace Vantry { namespace DataIO {

class DataSink;

/// Writes chains to a data sink, slice by slice.
class VANTRY_EXPORT ChainSinkDataAdapter : public ChainSink
{
public:
    /// The sink is lent.
    explicit ChainSinkDataAdapter(DataSink & sink);
    ~ChainSinkDataAdapter() override;

    /// Leaves the chain as it is.
    ///
    /// \throws Exceptions::IOError when the medium fails.
    void write(Chain & chain) override;

private:
    DataSink & sink_;
};

}}
