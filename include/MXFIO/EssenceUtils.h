#pragma once

#include "KLV/Key.h"
#include "MXFIO/ContentStorageProfile.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace Types {
class UniversalLabel;
}

namespace MXFIO {

class Reader;
class Reader2;

/// A time in edit units, as an exact fraction.
///
/// \param editRate  edit units per second
/// \throws Exceptions::InvalidValue when the rate isn't above 0, or 64 bits
///         don't hold the result; here and below.
VANTRY_EXPORT Templates::Rational<Int64> seconds2EditUnits(Templates::Rational<Int64> const & seconds,
                                                           Templates::Rational<Int64> const & editRate);

/// Edit units as a time in seconds.
VANTRY_EXPORT Templates::Rational<Int64> editUnits2Seconds(Templates::Rational<Int64> const & editUnits,
                                                           Templates::Rational<Int64> const & editRate);

/// Edit units of one rate in edit units of another.
VANTRY_EXPORT Templates::Rational<Int64> editUnitsConverter(Templates::Rational<Int64> const & editUnits,
                                                            Templates::Rational<Int64> const & currentEditRate,
                                                            Templates::Rational<Int64> const & editRate);

/// Whether data of this definition are essence: picture, sound or data, and
/// what the application knows to be.
///
/// \param profile  may be empty
VANTRY_EXPORT bool isDataDefinitionEssence(Types::UniversalLabel const & dataDefinition,
                                           Templates::SharedPtr<ContentStorageProfile> const & profile);

/// The track number in the key of an essence element (SMPTE 379M): item type,
/// element count, element type and element number, which are bytes 12 to 15.
VANTRY_EXPORT unsigned int key2TrackNumber(KLV::Key const & key) noexcept;

/// The key of an element with this track number. An item type of 4 gives that
/// of an element of the system item.
VANTRY_EXPORT KLV::Key trackNumber2Key(unsigned int trackNumber) noexcept;

/// Bytes of an essence container: the sum of all its bodies.
///
/// \throws Exceptions::InvalidFormat when a body starts behind the next
///         partition or the end of the file, and as Reader::nextPartition.
VANTRY_EXPORT UInt64 containerSize(Reader & reader, unsigned int bodySID);

/// The same by the last body alone, whose pack says what lies ahead of it.
///
/// \throws Exceptions::InvalidFormat when the container has no partition, or
///         its last body starts behind the next partition; and as
///         Reader::previousPartition.
VANTRY_EXPORT UInt64 containerSize(Reader2 & reader, unsigned int bodySID);

}
}
