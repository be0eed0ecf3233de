#pragma once

#include "KLV/Key.h"
#include "Platform/Export.h"

/// Keys of sets that all header metadata rest on.
namespace Vantry { namespace Metadata { namespace MetadataKeys {

/// The root of the tree of sets.
VANTRY_EXPORT KLV::Key const & preface() noexcept;

}}}
