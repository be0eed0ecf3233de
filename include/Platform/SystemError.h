#pragma once

#include "Platform/Export.h"
#include "Templates/Containers.h"

namespace Vantry { namespace Platform {

/// The system's text for the last error that it reported to this thread.
/// Any other call to the system may change it.
VANTRY_EXPORT Templates::wstring lastErrorMessage();

}}
