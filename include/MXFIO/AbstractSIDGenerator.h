#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry { namespace MXFIO {

/// Numbers the streams of a file. All numbers of a file differ from each
/// other and from 0.
class VANTRY_EXPORT AbstractSIDGenerator
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~AbstractSIDGenerator();

    /// The streams of a container's essence and of its index table.
    ///
    /// \param container  1 for the first that was added
    virtual unsigned int bodySID(unsigned int container) = 0;
    virtual unsigned int indexSID(unsigned int container) = 0;
};

}}
