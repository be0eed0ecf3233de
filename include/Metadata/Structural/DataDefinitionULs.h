#pragma once

#include "Platform/Export.h"

namespace Vantry {
namespace Types {
class UniversalLabel;
}

/// Labels that say what kind of data a track holds (SMPTE 377M, RP 224).
namespace Metadata { namespace Structural { namespace DataDefinitionULs {

/// Pictures.
VANTRY_EXPORT Types::UniversalLabel const & picture() noexcept;

/// Sound.
VANTRY_EXPORT Types::UniversalLabel const & audio() noexcept;

/// Data essence.
VANTRY_EXPORT Types::UniversalLabel const & data() noexcept;

/// Descriptive metadata.
VANTRY_EXPORT Types::UniversalLabel const & descriptiveMetadata() noexcept;

/// Time code by SMPTE 12M, user bits unused.
VANTRY_EXPORT Types::UniversalLabel const & timecode12MInactive() noexcept;

/// Time code by SMPTE 12M, user bits in use.
VANTRY_EXPORT Types::UniversalLabel const & timecode12MActive() noexcept;

/// Date and time in the user bits by SMPTE 309M. The bytes are those of
/// timecode12MActive, so that a track with the standard's own label for 309M is
/// none of time code here.
VANTRY_EXPORT Types::UniversalLabel const & timecode309M() noexcept;

/// Auxiliary data.
VANTRY_EXPORT Types::UniversalLabel const & auxiliaryData() noexcept;

/// Text that was parsed, such as subtitles.
VANTRY_EXPORT Types::UniversalLabel const & parsedText() noexcept;

}}}
}
