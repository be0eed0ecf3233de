#pragma once

#include "WrapInput.h"

#include <memory>
#include <vector>

namespace Vantry { namespace Application {

/// Opens the essence of a D-10 file: pictures, which come first, and sound,
/// which shares one analyzer for the eight-channel element. That has silence
/// where a sound ends ahead of the pictures.
///
/// \throws Failure for anything but one stream of MPEG-2 video with sound
///         beside it, and for what D-10 doesn't take.
std::vector<std::unique_ptr<WrapInput>> openD10Inputs(std::vector<FoundEssence> const & essence);

}}
