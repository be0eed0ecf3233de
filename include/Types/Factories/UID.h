#pragma once

#include "Platform/Export.h"
#include "Types/UMID32.h"
#include "Types/UUID.h"

namespace Vantry { namespace Types { namespace Factories {

/// Makes new identifiers from the clock, the address of the network adapter
/// and a random source.
///
/// With the environment variable "deterministic_uids" set to "true" they
/// count up instead, so that output can be compared byte for byte.
///
/// Safe between threads: the generators run under
/// Initializer::singletonMutex.
class VANTRY_EXPORT UID
{
public:
    /// Where the first eight bytes of a UUID come from, and with them its
    /// version as RFC 4122 counts them. Other values write nothing.
    enum TimeSnapVersion : int
    {
        /// The time in units of 100 ns since 15 October 1582.
        TIME_SNAP_VERSION_1 = 1,
        /// Not implemented.
        TIME_SNAP_VERSION_2 = 2,
        /// Not implemented.
        TIME_SNAP_VERSION_3 = 3,
        /// Random bytes.
        TIME_SNAP_VERSION_4 = 4
    };

    /// What a UMID identifies (SMPTE 330M, byte 11 of the label).
    enum MaterialType : unsigned char
    {
        MATERIAL_SINGLE_PICTURE = 5,
        MATERIAL_SEVERAL_PICTURES = 6,
        MATERIAL_SINGLE_SOUND = 8,
        MATERIAL_SEVERAL_SOUNDS = 9,
        MATERIAL_SINGLE_DATA = 11,
        MATERIAL_SEVERAL_DATA = 12,
        MATERIAL_MIXED = 13,
        MATERIAL_NOT_IDENTIFIED = 15
    };

    /// How the material number of a UMID is made (SMPTE 330M, upper half of
    /// byte 12 of the label). Other values leave it at zero.
    enum MaterialNumberType : unsigned char
    {
        /// Not defined: made as MNMI_SMPTE.
        MNMI_NOT_DEFINED = 0,
        /// Time snap, two random bytes and the network address.
        MNMI_SMPTE = 16,
        /// A UUID.
        MNMI_UUID = 32,
        /// Not implemented.
        MNMI_MASKED = 48,
        /// Time snap and the network address in the eight bytes of IEEE 1394.
        MNMI_IEEE1394 = 64
    };

    /// How the instance number of a UMID is made (SMPTE 330M, lower half of
    /// byte 12 of the label). Other values leave it at zero.
    enum InstanceNumberType : unsigned char
    {
        /// Not defined: three random bytes.
        INSTANCE_NOT_DEFINED = 0,
        /// Bits 8 to 31 of a number given by a local registration, the lowest
        /// ones first.
        INSTANCE_LOCAL_REGISTRATION = 1,
        /// Three random bytes.
        INSTANCE_RANDOM = 2,
        /// The low byte of a copy number and two random bytes.
        INSTANCE_COPY_NUMBER = 3
    };

    UID() = delete;

    /// A new UUID: the time snap, two random bytes, the network address.
    ///
    /// \throws Exceptions::NotImplemented for versions 2 and 3.
    /// \throws Exceptions::OSError when there is no time.
    static UUID generateUUID(TimeSnapVersion version);

    /// A new basic UMID (SMPTE 330M).
    ///
    /// \param materialType        what it identifies
    /// \param materialNumberType  how bytes 16 to 31 are made
    /// \param instanceNumberType  how bytes 13 to 15 are made
    /// \param timeSnapVersion     for MNMI_UUID: the version of that UUID
    /// \param instanceNumber      for the instance number types that take one
    /// \throws Exceptions::NotImplemented for MNMI_MASKED, and as
    ///         generateUUID for MNMI_UUID.
    /// \throws Exceptions::OSError when there is no time.
    static UMID32 generateBasicUMID(MaterialType materialType, MaterialNumberType materialNumberType,
                                    InstanceNumberType instanceNumberType, TimeSnapVersion timeSnapVersion,
                                    unsigned int instanceNumber);
};

}}}
