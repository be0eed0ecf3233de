#pragma once

#include "Platform/Export.h"
#include "Platform/Integers.h"

#include <cstdio>

namespace Vantry { namespace Platform {

/// Reads up to `size` bytes of a file from `position` on, past the buffer and
/// the position of the stream. Fewer mean that the file ends there; -1 is a
/// failure.
VANTRY_EXPORT Int64 readAt(std::FILE * file, UInt64 position, unsigned char * destination, UInt64 size) noexcept;

}}
