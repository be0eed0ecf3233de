#pragma once

#include "Platform/Export.h"

namespace Vantry {
namespace Types {
class UMID64;
}

namespace Metadata { namespace Structural { namespace NullValues {

/// All zero: no package.
VANTRY_EXPORT Types::UMID64 const & nullUMID64() noexcept;

}}}
}
