#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Templates/Containers.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// A descriptor and all that are in it, each once, although a file may nest
/// them in a circle; none for null.
Templates::vector<FileDescriptor *> withSubDescriptors(FileDescriptor * descriptor);

}}}
