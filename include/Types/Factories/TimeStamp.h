#pragma once

#include "Platform/Export.h"
#include "Types/Timestamp.h"

/// Makes times.
namespace Vantry { namespace Types { namespace Factories { namespace TimeStamp {

/// The date and time of now, as clocks on the wall show it. When the
/// environment variable "deterministic_uids" is "true" it is 2003-01-01
/// 01:00:00, so that files come out the same in each run.
///
/// \throws Exceptions::OSError when the system has no time to tell.
VANTRY_EXPORT Timestamp getCurrentDate();

}}}}
