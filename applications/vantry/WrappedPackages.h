#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Types/Timestamp.h"

#include <string>

namespace Vantry {
namespace Utils {
class TimeCode;
}

namespace Application {

/// The date and time of now in UTC; that of deterministic files where they are
/// asked for.
Types::Timestamp dateOfNow(bool isDeterministic);

void setDates(Metadata::Structural::GenericPackage & package, Types::Timestamp const & date);

void setName(Metadata::Structural::GenericPackage & package, std::string const & name);

/// Puts the time code track first, and numbers all tracks from 1: there are
/// readers that take a number of 0 for none.
void numberTracks(Metadata::Structural::MaterialPackage & package);

/// The first track with essence.
Metadata::Structural::TimelineTrack & essenceTrack(Metadata::Structural::SourcePackage const & package);

/// Gives the time code track, if there is one, the number 1.
void numberTimeCodeTrack(Metadata::Structural::SourcePackage & package);

/// Sets the start of the time code track, if there is one.
void setStartTimeCode(Metadata::Structural::SourcePackage & package, Utils::TimeCode const & start);

}
}
