#pragma once

#include "Platform/Export.h"

namespace Vantry {
namespace Types {
class UniversalLabel;
}

/// Labels of essence containers that no single kind of essence goes with.
namespace Metadata { namespace Structural { namespace Wrappings {

/// Several essence containers side by side, in a descriptor that has one
/// descriptor for each.
VANTRY_EXPORT Types::UniversalLabel const & multipleWrapping() noexcept;

}}}
}
