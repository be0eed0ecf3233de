#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"

namespace Vantry {
namespace Types {
class UniversalLabel;
}
namespace Utils {
class TimeCode;
}

namespace Metadata {

class PartitionMetadata;

namespace Structural {

/// Appends the timeline tracks of a package, in its order.
VANTRY_EXPORT void getAllTimelineTracks(GenericPackage const & package, Templates::list<TimelineTrack *> & tracks);

/// Appends the timeline tracks with essence, in the order of the package.
VANTRY_EXPORT void getAllEssenceTracks(GenericPackage const & package, Templates::list<TimelineTrack *> & tracks);

/// The first timeline track with time code, or null.
VANTRY_EXPORT TimelineTrack * getTimecodeTrack(GenericPackage const & package);

/// From the start of the first essence track to the end of the last, in
/// seconds; -1/1 when there is no essence track or one doesn't tell.
///
/// \throws Exceptions::InvalidValue when 64 bits don't hold the result.
VANTRY_EXPORT Templates::Rational<Int64> packageDurationInSeconds(GenericPackage const & package);

/// `packageDurationInSeconds` as a time code that counts as the time code track
/// does, rounded up to whole frames; undefined when there is no such track or
/// the duration isn't known.
///
/// \throws Exceptions::InvalidFormat as `isDropFrame`.
/// \throws Exceptions::InvalidValue when 64 bits don't hold the frames.
VANTRY_EXPORT Utils::TimeCode packageDurationAsTimeCode(GenericPackage const & package);

/// The time code at the start of the time code track; undefined when there is
/// none.
VANTRY_EXPORT Utils::TimeCode startTimecode(GenericPackage const & package);

/// The descriptor of a track: the package's, or that of several in it which is
/// linked to the track. One that isn't linked is that of the only track. Null
/// when there is none.
VANTRY_EXPORT FileDescriptor * fileDescriptorForTrack(SourcePackage const & package, unsigned int trackID);

/// The label of the essence container that carries a track, or null. Where no
/// descriptor is linked to a track of picture or sound, the first of that kind
/// counts.
VANTRY_EXPORT Types::UniversalLabel const * essenceULOfTrack(SourcePackage const & package,
                                                             TimelineTrack const * track);

/// Whether the essence of a package lies outside the file: a descriptor says
/// where, and no stream of the file holds it.
///
/// \throws Exceptions::NotFound when there is no Preface.
/// \throws Exceptions::InvalidFormat when there is no ContentStorage or the
///         package has no identifier.
VANTRY_EXPORT bool isExternalEssence(PartitionMetadata const & metadata, SourcePackage const & package);

/// Whether the essence of any package lies outside the file.
///
/// \throws Exceptions as `isExternalEssence`.
VANTRY_EXPORT bool hasExternalEssence(PartitionMetadata const & metadata);

}
}
}
