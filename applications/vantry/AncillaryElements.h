#pragma once

#include "FoundEssence.h"

#include <optional>
#include <string_view>

namespace Vantry { namespace Application {

/// Whether a stream begins with elements of SMPTE 436M, of ancillary packets or
/// of lines of the vertical blanking interval; nothing where it doesn't, or
/// where none of its elements has any of them.
std::optional<EssenceKind> kindOfElements(std::string_view head);

}}
