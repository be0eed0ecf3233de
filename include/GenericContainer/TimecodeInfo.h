#pragma once

#include "Platform/Integers.h"

namespace Vantry { namespace GenericContainer {

/// What the time code track of a source package is to be like.
struct TimecodeInfo
{
    /// Whether the next four are a start time code.
    bool hasDefaultStart = false;

    unsigned char hours = 0;
    unsigned char minutes = 0;
    unsigned char seconds = 0;
    unsigned char frames = 0;

    /// Whether the default wins over a time code that the essence brings.
    bool overridesEssence = false;

    /// Whether the track goes on counting where the time code of the essence
    /// jumps.
    bool suppressTimecodeDiscontinuities = false;

    bool generateTimecodeTrack = true;
};

}}
