#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"

namespace Vantry { namespace GenericContainer {

/// The smallest duration of a timeline track that is known; -1 when none is.
Int64 smallestDuration(Metadata::Structural::SourcePackage const & package);

/// Sets the durations of all timeline tracks, the last component making up
/// what the others leave.
///
/// \param timecodeToo  tracks of time code too
void setDuration(Metadata::Structural::SourcePackage & package, Int64 duration, bool timecodeToo);

/// Sets the origins of all timeline tracks.
///
/// \param preCharge  seconds that come ahead of what is shown
void setOrigins(Metadata::Structural::SourcePackage & package, Templates::Rational<int> const & preCharge);

}}
