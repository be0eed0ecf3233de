#pragma once

#include "MXFIO/AbstractSIDGenerator.h"

namespace Vantry { namespace MXFIO {

/// Numbers essence 1, 3, 5 and so on, and index tables 2, 4, 6.
class VANTRY_EXPORT DefaultSIDGenerator : public AbstractSIDGenerator
{
public:
    unsigned int bodySID(unsigned int container) override;
    unsigned int indexSID(unsigned int container) override;
};

}}
