#pragma once

#include "KLV/Key.h"
#include "Platform/Export.h"

namespace Vantry { namespace KLV {

/// The key that fill items are written with.
VANTRY_EXPORT Key const & fillItemKey() noexcept;

/// Sets the registry version of that key, 1 at first, for the whole process.
/// To be called before work starts: there is no lock.
VANTRY_EXPORT void fillItemKey(unsigned char version) noexcept;

}}
