#pragma once

#include "VideoStream.h"

#include <string>

namespace Vantry { namespace Analyzers {

/// Follows the groups of pictures of a stream, frame by frame in coded order:
/// what the index has to know of each, and what the groups have in common.
///
/// A group begins with a group header or, in a stream without any, with an
/// intra picture.
class PictureGroups
{
public:
    struct Place
    {
        /// Flags of the index entry (SMPTE 381M, 6.2.1).
        UInt8 flags;

        /// Frames from the last intra picture in coded order to this frame in
        /// the order of display, modulo 256. It is the temporal reference
        /// where each group has one intra picture.
        Int8 temporalOffset;
    };

    Place add(CodedFrame const & frame);

    UInt64 frames() const noexcept { return frames_; }

    /// Whether there are predicted pictures, and such that are shown ahead of
    /// pictures that are coded ahead of them.
    bool hasPredicted() const noexcept { return hasPredicted_; }
    bool hasBidirectional() const noexcept { return longestRun_ != 0; }

    bool areClosed() const noexcept { return areClosed_; }
    bool areIdentical() const noexcept { return areIdentical_; }
    UInt64 longest() const noexcept { return longest_; }

    /// The most B pictures in a row, and whether all rows have so many.
    UInt64 longestRun() const noexcept { return longestRun_; }
    bool areRunsEqual() const noexcept { return areRunsEqual_; }

private:
    void beginGroup(CodedFrame const & frame);
    void beginReferences(CodedFrame const & frame);
    void follow(PictureType type);
    int framesAhead(CodedFrame const & frame) const;
    bool isRandomAccess(CodedFrame const & frame) const;

    UInt64 frames_ = 0;
    UInt64 groupBegin_ = 0;
    UInt64 lastAnchor_ = 0;

    // The frame from which temporal references count, and its own.
    UInt64 referencesBegin_ = 0;
    int firstReference_ = 0;

    bool hasGroupHeaders_ = false;
    bool hasPredicted_ = false;
    bool areClosed_ = true;
    bool areIdentical_ = true;
    bool areRunsEqual_ = true;
    UInt64 longest_ = 0;
    UInt64 longestRun_ = 0;
    UInt64 run_ = 0;

    // Types of the pictures of the first group and of the present one.
    std::string firstTypes_;
    std::string types_;
};

}}
