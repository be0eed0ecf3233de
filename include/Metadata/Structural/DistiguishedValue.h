#pragma once

#include "Platform/Export.h"

namespace Vantry {
namespace Types {
class UMID32;
}

namespace Metadata { namespace Structural { namespace DistiguishedValue {

/// All zero: the package of a source clip where the chain of sources ends.
VANTRY_EXPORT Types::UMID32 const & nullUMID32() noexcept;

}}}
}
