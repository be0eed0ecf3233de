#pragma once

#include "DataIO/Slice.h"
#include "Platform/Integers.h"
#include "Templates/Rational.h"
#include "Utils/TimeCode.h"

#include <optional>

namespace Vantry { namespace Analyzers {

/// What a frame of DV can be: by IEC 61834, or one of the formats of SMPTE
/// 314M and 370M that are based on it.
struct DVFormat
{
    // What the headers of a frame say.
    bool isProfessional; ///< of SMPTE 314M or 370M
    bool is50Hz;         ///< 625 lines, or as many frames as those have
    unsigned char signalType;

    // Byte 14 of the label of the container (SMPTE 383M), and bytes 13 and 14
    // of that of the coding (SMPTE RP 224).
    unsigned char container;
    unsigned char coding[2];

    UInt32 frameSize; ///< bytes
    int frames, seconds;
    unsigned int width, height;
    bool isProgressive;
    Int32 lines[2]; ///< where the fields begin, or the frame
    unsigned char signalStandard;

    unsigned int horizontalSubsampling, verticalSubsampling;
    unsigned char colorSiting;

    Templates::Rational<int> rate() const { return {frames, seconds}; }
};

/// What the first blocks of a frame say: header, subcode and auxiliary data of
/// its first sequence.
class DVHeaders
{
public:
    static constexpr UInt64 SIZE = 480;

    /// \param blocks  the first SIZE bytes of a frame
    explicit DVHeaders(DataIO::Slice const & blocks) : blocks_(blocks) {}

    /// Whether the blocks stand in their order.
    bool areWhole() const;

    /// Null for one that isn't known.
    DVFormat const * format() const;

    bool isWide() const;

    /// Undefined where the frame has none.
    Utils::TimeCode timeCode() const;

private:
    std::optional<Utils::TimeCode> timeCodeIn(unsigned char const * pack) const;
    unsigned char const * auxiliaryPack(unsigned char id) const;
    unsigned char const * block(unsigned int number) const;
    bool is50Hz() const;
    unsigned char application() const;

    DataIO::Slice blocks_;
};

}}
