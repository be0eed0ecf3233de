#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace DataIO {

class Chain;

/// Where chains go.
class VANTRY_EXPORT ChainSink
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~ChainSink();

    /// Takes the bytes of `chain`. What becomes of its slices is up to the
    /// sink.
    virtual void write(Chain & chain) = 0;
};

}}
