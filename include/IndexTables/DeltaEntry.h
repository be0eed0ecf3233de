#pragma once

#include "IndexTables/IndexTableSegmentEntry.h"
#include "Platform/Integers.h"

namespace Vantry {
namespace KLV {
class Value;
}

namespace IndexTables {

/// Where an element lies inside each edit unit (SMPTE 377M, 10.2).
///
///     0  1  position table index, signed
///     1  1  slice
///     2  4  element delta
///
/// All numbers are big-endian.
class VANTRY_EXPORT DeltaEntry : public IndexTableSegmentEntry
{
public:
    /// Bytes of the wire form.
    static constexpr unsigned short SIZE = 6;

    /// Arguments as the accessors of the same names.
    DeltaEntry(signed char posTableIndex, unsigned char slice, unsigned int elementDelta) noexcept :
        elementDelta_(elementDelta), posTableIndex_(posTableIndex), slice_(slice)
    {
    }

    /// Reads the entry.
    ///
    /// \throws Exceptions::InvalidLength when the value has too few bytes
    ///         left; it carries them.
    explicit DeltaEntry(KLV::Value & value);

    /// Decodes the `SIZE` bytes of the wire form.
    explicit DeltaEntry(unsigned char const * bytes) noexcept;

    /// -1 for an element whose pictures are stored in another order than they
    /// are shown in, 0 for one without a position table, else the number of
    /// its entry there, counted from 1.
    signed char posTableIndex() const noexcept { return posTableIndex_; }
    void posTableIndex(signed char posTableIndex) noexcept { posTableIndex_ = posTableIndex; }

    /// The slice of the edit unit that holds the element. Slice 0 starts with
    /// the edit unit, slice n at its slice offset n - 1.
    unsigned char slice() const noexcept { return slice_; }
    void slice(unsigned char slice) noexcept { slice_ = slice; }

    /// Bytes from the start of the slice to the element.
    unsigned int elementDelta() const noexcept { return elementDelta_; }
    void elementDelta(unsigned int elementDelta) noexcept { elementDelta_ = elementDelta; }

    /// Writes the wire form to the `SIZE` bytes at `bytes`.
    void write(unsigned char * bytes) const noexcept;

    void serialize(DataIO::DataSink & sink) const override;
    unsigned short serializedSize() const override { return SIZE; }

private:
    UInt32 elementDelta_;
    signed char posTableIndex_;
    unsigned char slice_;
};

}
}
