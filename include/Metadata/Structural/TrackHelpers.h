#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata {

class PartitionMetadata;

namespace Structural {

/// Whether data of this definition are picture, sound or data essence.
VANTRY_EXPORT bool isEssenceDataDefinition(Types::UniversalLabel const & dataDefinition);

/// Whether data of this definition are time code.
VANTRY_EXPORT bool isTimecodeDataDefinition(Types::UniversalLabel const & dataDefinition);

/// Whether the sequence of a track is one of essence; false for null.
VANTRY_EXPORT bool isEssenceTrack(Track const * track);

/// Whether the sequence of a track is one of time code; false for null.
VANTRY_EXPORT bool isTimeCodeTrack(Track const * track);

/// Whether the first component of a time code track drops frame numbers.
///
/// \throws Exceptions::InvalidFormat when there is no such component, or when
///         it doesn't tell.
VANTRY_EXPORT bool isDropFrame(Track const & track);

/// When the essence of a track starts and ends, in seconds from the start of
/// what it is stored in.
///
/// \return false when the track doesn't tell; start and end are as before
VANTRY_EXPORT bool trackBoundsInSeconds(TimelineTrack const * track, Templates::Rational<Int64> & start,
                                        Templates::Rational<Int64> & end);

/// Adds a track with an empty sequence to the end of a package.
///
/// \param dataDefinition  of the sequence
/// \param length          of the sequence, in edit units
/// \return the track; null when it can't be linked to the package or to the
///         sequence, and then nothing was added
/// \throws Exceptions::NotFound when the dictionary lacks a set or an
///         attribute.
VANTRY_EXPORT TimelineTrack * createTimelineTrack(PartitionMetadata & metadata, GenericPackage & package,
                                                  Types::UniversalLabel const & dataDefinition, unsigned int trackID,
                                                  unsigned int trackNumber, Types::Position const & origin,
                                                  Types::Rational const & editRate, Types::Length const & length);

/// Adds a clip that refers to nothing yet to the end of a sequence.
///
/// \throws Exceptions::NotFound when the dictionary lacks a set or an
///         attribute.
/// \throws Exceptions::InvalidChange when the dictionary doesn't let a clip
///         be without source.
VANTRY_EXPORT SourceClip * addSourceClip(PartitionMetadata & metadata, Sequence * sequence,
                                         Types::UniversalLabel const & dataDefinition, Types::Position const & start,
                                         Types::Length const & length);

}
}}
