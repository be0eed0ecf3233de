#pragma once

#include "Platform/Export.h"

namespace Vantry {
namespace Types {
class UniversalLabel;
}

/// Labels of the attributes of an index table segment (SMPTE 377M, 10.2).
namespace Metadata { namespace Structural { namespace IndexTablesULs {

/// Edit units of the index per second.
VANTRY_EXPORT Types::UniversalLabel const & indexEditRate() noexcept;

/// The first edit unit that a segment indexes.
VANTRY_EXPORT Types::UniversalLabel const & indexStartPosition() noexcept;

/// How many edit units a segment indexes.
VANTRY_EXPORT Types::UniversalLabel const & indexDuration() noexcept;

/// Bytes of each edit unit; 0 when they differ.
VANTRY_EXPORT Types::UniversalLabel const & editUnitByteCount() noexcept;

/// Slices of an edit unit, less one.
VANTRY_EXPORT Types::UniversalLabel const & sliceCount() noexcept;

/// Entries of the position table.
VANTRY_EXPORT Types::UniversalLabel const & positionTableCount() noexcept;

/// The delta entries: where elements lie in an edit unit.
VANTRY_EXPORT Types::UniversalLabel const & deltaEntryArray() noexcept;

/// The index entries: where edit units lie in the stream.
VANTRY_EXPORT Types::UniversalLabel const & indexEntryArray() noexcept;

}}}
}
