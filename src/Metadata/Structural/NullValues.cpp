#include "Metadata/Structural/NullValues.h"

#include "Types/UMID64.h"

namespace Vantry { namespace Metadata { namespace Structural { namespace NullValues {

Types::UMID64 const & nullUMID64() noexcept
{
    static unsigned char const ZEROS[64] = {};
    static Types::UMID64 const NULL_UMID(ZEROS);
    return NULL_UMID;
}

}}}}
