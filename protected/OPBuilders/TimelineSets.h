#pragma once

#include "OPBuilders/Durations.h"
#include "OPBuilders/ProxyBase.h"

namespace Vantry { namespace OPBuilders {

/// A new sequence without parts.
Metadata::Structural::Sequence & createSequence(ProxyBase const & base, Types::UniversalLabel const & dataDefinition);

/// A new track without a sequence, and with the number of no essence.
///
/// \param rate    edit units per second
/// \param origin  in edit units
Metadata::Structural::TimelineTrack & createTimelineTrack(ProxyBase const & base, unsigned int trackID,
                                                          Rate const & rate, Int64 origin, unsigned short const * name);

}}
