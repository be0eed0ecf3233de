#pragma once

#include "DataIO/Slice.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/auto_ptr.h"

namespace Vantry { namespace DataIO {

/// Where a stream of slices goes.
class VANTRY_EXPORT SliceSink
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~SliceSink();

    /// Takes the slice over.
    virtual void write(Templates::auto_ptr<Slice> slice) = 0;
};

}}
