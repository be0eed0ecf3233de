#pragma once

#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry {

namespace Types {
class UniversalLabel;
}

/// The MXF Generic Container (SMPTE 379M): how essence lies in a file.
namespace GenericContainer {

/// The labels of essence containers (SMPTE RP 224), which name the mapping
/// document and how essence is wrapped.
class VANTRY_EXPORT RP224UniversalLabels
{
public:
    RP224UniversalLabels() = delete;

    /// What is mapped into the container.
    enum Mapping : Int32
    {
        UNKNOWN = 0,
        AES3 = 1,                ///< AES3 sound (SMPTE 382M)
        AVC_BYTE_STREAM = 2,     ///< SMPTE 381-3
        AVC_NAL_UNIT_STREAM = 3, ///< SMPTE 381-3
        BROADCAST_WAVE = 4,      ///< Wave sound (SMPTE 382M)
        D10 = 5,                 ///< SMPTE 386M
        DV = 6,                  ///< SMPTE 383M
        MPEG_ELEMENTARY = 7,     ///< SMPTE 381M
        MPEG_PROGRAM = 8,        ///< SMPTE 381M
        MPEG_TRANSPORT = 9,      ///< SMPTE 381M
        UNCOMPRESSED = 10,       ///< picture (SMPTE 384M)
        A_LAW = 11,              ///< sound (SMPTE 388M)
        JPEG_2000 = 12,          ///< SMPTE 422M
        COMPRESSED = 13          ///< picture of a coding that is told elsewhere
    };

    enum WrapKind : Int32
    {
        FRAME = 0,
        CLIP = 1,
        NEITHER = 2 ///< wrapped in another way, or the label doesn't tell
    };

    struct EssenceContainerInfo
    {
        Mapping mapping;
        WrapKind wrapKind;
    };

    /// What a label says; UNKNOWN and NEITHER for one of no known mapping.
    /// The registry version and the bytes that the mapping leaves to
    /// variants don't matter.
    ///
    /// \throws Exceptions::InvalidValue for DV, AES3 and Wave, A-law and JPEG
    ///         2000 when the way of wrapping isn't one of the mapping's.
    static EssenceContainerInfo essenceContainerInfo(Types::UniversalLabel const & label);
};

}
}
