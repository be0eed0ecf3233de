#include "Metadata/Structural/SMPTE331MTimeDateItemDescriptor.h"

#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/SetClass.h"
#include "Types/Boolean.h"
#include "Types/Rational.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace Metadata { namespace Structural {

VANTRY_SET(SMPTE331MTimeDateItemDescriptor, FileDescriptor, smpte331MTimeDateItemDescriptor)

VANTRY_VALUE(SMPTE331MTimeDateItemDescriptor, dateTimeRate, dateTimeRate, Rational)
VANTRY_VALUE(SMPTE331MTimeDateItemDescriptor, dateTimeDropFrame, dateTimeDropFrame, Boolean)
VANTRY_VALUE(SMPTE331MTimeDateItemDescriptor, dateTimeEmbeded, dateTimeEmbeded, Boolean)
VANTRY_VALUE(SMPTE331MTimeDateItemDescriptor, dateTimeKind, dateTimeKind, UniversalLabel)

}}}
