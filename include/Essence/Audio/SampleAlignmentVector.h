#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"

namespace Vantry { namespace Essence { namespace Audio {

/// The sequences by which sound is cut into edit units of an NTSC rate, to
/// which its sampling rate is in no whole ratio.
class VANTRY_EXPORT SampleAlignmentVector
{
public:
    VANTRY_CLASS_ALLOCATION

    /// Appends one cycle of the sequence. Its element `e` stands for an edit
    /// unit of `ceiling - e` samples, the ceiling being the ratio of the two
    /// rates rounded up: 48000 Hz at 30000/1001 has the ceiling 1602 and the
    /// elements 0 1 0 1 0, which makes 8008 samples in five edit units.
    ///
    /// There are sequences for 30000/1001 with 48000, 44100, 22050 and 8000 Hz
    /// and for 60000/1001 with 48000 Hz. Any other edit rate has the single
    /// element 0, whatever the ratio.
    ///
    /// \throws Exceptions::NotImplemented for another sampling rate with one
    ///         of these two edit rates.
    static void fillSampleAlignmentVector(Templates::vector<unsigned char> & alignment, unsigned int samplingRate,
                                          Templates::Rational<int> const & editRate);
};

}}}
