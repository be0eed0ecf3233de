#pragma once

#include "Platform/Integers.h"

namespace Vantry {
namespace IndexTables {
class IndexEntry;
}

namespace GenericContainer {

/// Follows pictures in the order in which they are stored, and finds where
/// their key frames are and where each place's picture is stored.
///
/// A place x of the index says where the picture is that is shown there: as
/// many places on as its temporal offset tells. The picture itself isn't known
/// yet when x is stored, but how it comes about is: pictures predicted from
/// later ones are stored one place behind the one where they are shown, and the
/// picture ahead of them is shown behind them all:
///
///     stored           I0  P3  B1  B2  P6  B4  B5
///     temporal offset   0  +1  +1  -2  +1  +1  -2
class PictureOrder
{
public:
    /// Sets flags and offsets in the entry of the next picture.
    ///
    /// \param count              edit units ahead of it
    /// \param flags              as IndexTables::IndexEntry has them
    /// \param temporalReference  the number of the picture in its group, in
    ///                           the order in which they are shown; of numbers
    ///                           above 127 the low eight bits
    void process(IndexTables::IndexEntry & entry, UInt64 count, unsigned char flags, signed char temporalReference);

private:
    void startGroup(bool isRandomAccess, UInt64 count);
    void processPredicted(IndexTables::IndexEntry & entry, bool isBackward);
    signed char temporalOffset(bool isBackward, signed char temporalReference);

    // Places to the key frame of the group: 0 or negative.
    int distance_ = -1;

    // Whether pictures that follow the key frame may depend on the group ahead
    // of it, and the places from this key frame to that group's.
    bool isOpen_ = false;
    int groupAhead_ = 0;

    // The run of backward predicted pictures: how many have come, counted from
    // 1, and the number of the last.
    signed char run_ = 0;
    signed char lastOfRun_ = 0;
};

}
}
