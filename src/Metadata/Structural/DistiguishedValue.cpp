#include "Metadata/Structural/DistiguishedValue.h"

#include "Types/UMID32.h"

namespace Vantry { namespace Metadata { namespace Structural { namespace DistiguishedValue {

Types::UMID32 const & nullUMID32() noexcept
{
    static unsigned char const ZEROS[32] = {};
    static Types::UMID32 const NULL_UMID(ZEROS);
    return NULL_UMID;
}

}}}}
