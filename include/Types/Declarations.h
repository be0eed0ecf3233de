#pragma once

/// \file
/// The classes of values that can be made, for headers that only name them.

namespace Vantry { namespace Types {

class Array;
class Batch;
class Boolean;
class DataStream;
class DataValue;
class ISO7String;
class Int16;
class Int32;
class Int64;
class Int8;
class J2KCodingStyleDefault;
class J2KPictureComponent;
class J2KQuantisationDefault;
class Length;
class LocalTag;
class Orientation;
class Position;
class ProductVersion;
class RGBALayout;
class Rational;
class SignalStandard;
class StrongReference;
class Timestamp;
class UInt16;
class UInt32;
class UInt64;
class UInt8;
class UMID32;
class UMID64;
class UTF16;
class UTF16String;
class UUID;
class UniversalLabel;
class Unknown;
class VersionType;
class WeakReference;

}}
