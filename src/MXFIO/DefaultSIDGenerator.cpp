#include "MXFIO/DefaultSIDGenerator.h"

namespace Vantry { namespace MXFIO {

unsigned int DefaultSIDGenerator::bodySID(unsigned int container)
{
    return 2 * container - 1;
}

unsigned int DefaultSIDGenerator::indexSID(unsigned int container)
{
    return 2 * container;
}

}}
