#pragma once

#include "Platform/Integers.h"

namespace Vantry { namespace IndexTables {

/// Where an edit unit stands in its group of pictures. What isn't known is
/// -1. Distances above 127 are told as 127.
///
/// Temporal offsets are taken as distances from the place where a picture is
/// stored to the one where it is shown. IndexEntry::temporalOffset has them
/// the other way round; the two differ for runs of B pictures.
struct GOPInfo
{
    /// Edit units from the start of the group, as they are stored.
    signed char gopPosition;

    /// `gopPosition` of the picture that is shown here.
    signed char temporalGopPosition;

    /// Number of the group, as they are stored, from 0 in each segment.
    Int32 gopIndex;

    /// `gopIndex` of the picture that is shown here; -1 too for the last group
    /// of the segment before.
    Int32 temporalGopIndex;
};

/// What is known of a group of pictures.
struct GOPStructuralInfo
{
    /// Number of edit units.
    UInt32 size;

    /// Whether no picture depends on one ahead of the group.
    bool closed;
};

}}
