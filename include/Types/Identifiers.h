#pragma once

#include "Platform/Export.h"

namespace Vantry { namespace Types { namespace Identifiers {

/// Names a type at run time, as a metadata dictionary does. The enumerators
/// bear the names of that use; some differ from the names of the classes.
enum Identifier : int
{
    Array = 0,
    Batch = 1,
    Boolean = 2,
    DataStream = 3,
    DUMMY_TO_REPLACE_EDIT_RATE = 4,
    Int16 = 5,
    Int32 = 6,
    Int64 = 7,
    Int8 = 8,
    ISO7bitCharString = 9,
    Key = 10,
    Length = 11,
    LocalTag = 12,
    Position = 13,
    ProductVersionType = 14,
    Rational = 15,
    TimestampType = 16,
    UInt16 = 17,
    UInt32 = 18,
    UInt64 = 19,
    UInt8 = 20,
    UMID32 = 21,
    UMID64 = 22,
    UL = 23,
    Unknown = 24,
    UTF16 = 25,
    UTF16CharString = 26,
    UUID = 27,
    VersionType = 28,
    StrongReference = 29,
    WeakReference = 30,
    DeltaEntryType = 31,
    IndexEntryType = 32,
    Orientation = 33,
    RGBALayout = 34,
    SignalStandard = 35,
    DataValue = 36,
    J2KPictureComponentType = 37,
    J2KCodingStyleDefault = 38,
    J2KQuantisationDefault = 39
};

/// The name, which lives as long as the library; that of `Unknown` for a
/// number that is no identifier.
VANTRY_EXPORT unsigned short const * identifierToString(Identifier identifier);

/// Bytes of each value of the type. Orientation says 4, as dictionaries
/// count it, though the value has one byte.
///
/// \throws Exceptions::InvalidType when values of the type differ in size.
VANTRY_EXPORT int typeSize(Identifier identifier);

/// The identifier of that name; `Unknown` for any other text.
/// "J2KPictureComponent" is understood without its ending.
VANTRY_EXPORT Identifier stringToIdentifier(unsigned short const * text);

}}}
