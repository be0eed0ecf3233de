#pragma once

#include <fmt/format.h>

namespace Vantry {
namespace KLV {
class Key;
}

namespace Application {

class SetNames;

/// Appends what a key tells of its packet (SMPTE 377M and 379M): "Header
/// Partition (closed, complete)", "GC Picture Element (track number
/// 0x15010500)", "Fill", "Unknown". Metadata sets are called what the schema
/// calls them.
void appendKeyName(fmt::memory_buffer & text, KLV::Key const & key, SetNames const & sets);

/// Whether this is the key of index table segments, or the one that they had
/// in the first edition of SMPTE 377M.
bool isIndexTableSegment(KLV::Key const & key) noexcept;

}
}
