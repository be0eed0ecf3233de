#pragma once

#include "Platform/Export.h"

namespace Vantry { namespace Essence { namespace JPEG2000 {

/// What a codestream (ISO/IEC 15444-1) may go on with.
enum JPEG2k_STATE : int
{
    STATE_START = 0,               ///< the start of a codestream
    STATE_IMAGE_SIZE = 1,          ///< the image and tile size
    STATE_MAIN_HEADER = 2,         ///< markers of the main header, or the first tile part
    STATE_TILE_PART_HEADER = 3,    ///< markers of a tile part, or its data
    STATE_TILE_DATA = 4,           ///< data of the first tile part
    STATE_NEXT_TILE_PART = 5,      ///< markers of a further tile part, or its data
    STATE_NEXT_TILE_PART_DATA = 6, ///< data of a further tile part
};

/// Goes on to the state that the marker FFh `marker` leads to. False, and the
/// state as it was, for a marker that can't stand here.
VANTRY_EXPORT bool checkMarker(JPEG2k_STATE & state, unsigned char marker) noexcept;

}}}
