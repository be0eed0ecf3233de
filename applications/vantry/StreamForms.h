#pragma once

#include "FoundEssence.h"

#include <optional>
#include <string_view>

namespace Vantry { namespace Application {

/// What a stream is by what it begins with; nothing for one that isn't known.
std::optional<EssenceKind> kindOfStream(std::string_view head);

/// Start of codestream, and the size marker that follows.
bool isCodestream(std::string_view head);

/// Whether it is a RIFF file of the form.
bool isRIFF(std::string_view head, std::string_view form);

}}
