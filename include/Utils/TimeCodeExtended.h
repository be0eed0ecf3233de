#pragma once

#include "Utils/TimeCode.h"

namespace Vantry { namespace Utils {

/// A time code with the user bits of SMPTE 12M.
class VANTRY_EXPORT TimeCodeExtended : public TimeCode
{
public:
    /// The user bits: eight groups of four bits, and three flags that say how
    /// they are used.
    struct BinaryGroups
    {
        bool flag0 = false;           ///< BGF0 of SMPTE 12M
        bool flag1 = false;           ///< BGF1
        bool flag2 = false;           ///< BGF2
        unsigned char groups[8] = {}; ///< 0 to 15 each
    };

    /// Undefined; no user bits, no colour frame.
    TimeCodeExtended();

    /// 00:00:00:00 without user bits.
    ///
    /// \throws Exceptions::InvalidValue like TimeCode.
    explicit TimeCodeExtended(unsigned char frameRate);

    /// \param binaryGroups taken as they are
    /// \param colorFrame   whether the time code is locked to the colour
    ///                     frames of the picture
    ///
    /// \throws Exceptions::InvalidValue like TimeCode, whose arguments the
    ///         others are.
    TimeCodeExtended(unsigned char frameRate, unsigned char hours, unsigned char minutes, unsigned char seconds,
                     unsigned char frames, bool dropFrame, BinaryGroups binaryGroups, bool colorFrame, bool fieldPhase);

    /// The counter sets the field phase at 50 and 60 frames per second, and
    /// `fieldPhase` then takes its place.
    ///
    /// \throws Exceptions::InvalidValue like TimeCode.
    TimeCodeExtended(unsigned char frameRate, Int64 frameCounter, bool dropFrame, BinaryGroups binaryGroups,
                     bool colorFrame, bool fieldPhase);

    TimeCodeExtended(TimeCodeExtended const & other);
    TimeCodeExtended & operator=(TimeCodeExtended const & other);
    ~TimeCodeExtended() override;

    BinaryGroups binaryGroups() const;
    void binaryGroups(BinaryGroups binaryGroups);

    bool colorFrame() const;
    void colorFrame(bool colorFrame);

private:
    BinaryGroups binaryGroups_;
    bool colorFrame_;
};

/// Equal as time codes, and in user bits, colour frame and field phase.
VANTRY_EXPORT bool operator==(TimeCodeExtended const & left, TimeCodeExtended const & right);

}}
