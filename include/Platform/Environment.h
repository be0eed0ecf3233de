#pragma once

#include "Platform/Export.h"
#include "Templates/Containers.h"

/// The environment of the process. The system doesn't guard it: nobody else
/// may use it while one thread sets a variable.
namespace Vantry { namespace Platform {

/// Whether the variable is set, and then its text, which may be empty.
VANTRY_EXPORT bool getenv(unsigned short const * name, Templates::wstring & value);

/// Sets the variable; 0, or -1 when the system refuses the name.
VANTRY_EXPORT int setenv(unsigned short const * name, unsigned short const * value);

/// The directory for temporary files: what TMP names, or else TEMP. False
/// when neither is set.
VANTRY_EXPORT bool tempDir(Templates::wstring & directory);

/// \throws Exceptions::OSError "No temporary directory defined in the system".
VANTRY_EXPORT Templates::wstring tempDir();

}}
