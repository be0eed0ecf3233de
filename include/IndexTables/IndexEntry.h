#pragma once

#include "IndexTables/IndexTableSegmentEntry.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"

#include <utility>

namespace Vantry {
namespace KLV {
class Value;
}

namespace IndexTables {

/// Where an edit unit lies in the essence stream and what kind of picture it
/// has (SMPTE 377M, 10.2).
///
///      0       1  temporal offset, signed
///      1       1  key frame offset, signed
///      2       1  flags
///      3       8  stream offset
///     11       4  each slice offset
///     11 + 4n  8  each entry of the position table: a fraction of two signed
///                 numbers
///
/// All numbers are big-endian. How many slice offsets and entries of the
/// position table there are is told by the segment; an entry holds what was
/// read or added. The numbers are kept in their wire form.
class VANTRY_EXPORT IndexEntry : public IndexTableSegmentEntry
{
public:
    /// The kinds of pictures, as `flags()` has them. The four low bits belong
    /// to the application.
    enum Flags : unsigned char
    {
        RANDOM_ACCESS = 0x80,
        SEQUENCE_HEADER = 0x40,
        FORWARD_PREDICTION = 0x20,
        BACKWARD_PREDICTION = 0x10
    };

    /// Bytes of an entry with so many slice offsets and entries of the
    /// position table.
    static constexpr unsigned int sizeOf(unsigned int sliceCount, unsigned int posTableCount) noexcept
    {
        return FIXED_SIZE + SLICE_SIZE * sliceCount + POSITION_SIZE * posTableCount;
    }

    /// Arguments as the accessors of the same names.
    IndexEntry(signed char temporalOffset, signed char keyFrameOffset, bool randomAccess, bool sequenceHeader,
               bool forwardPrediction, bool backwardPrediction, UInt64 streamOffset) noexcept;

    /// An edit unit with which decoding can start.
    explicit IndexEntry(UInt64 streamOffset) noexcept :
        streamOffset_(streamOffset),
        inside_(),
        sliceCount_(0),
        posTableCount_(0),
        temporalOffset_(0),
        keyFrameOffset_(0),
        flags_(RANDOM_ACCESS)
    {
    }

    /// Reads an entry with so many slice offsets and entries of the position
    /// table.
    ///
    /// \throws Exceptions::InvalidLength when the value has too few bytes
    ///         left; it carries them.
    IndexEntry(KLV::Value & value, unsigned char sliceCount, unsigned char posTableCount);

    /// Decodes the `sizeOf(sliceCount, posTableCount)` bytes of the wire form.
    IndexEntry(unsigned char const * bytes, unsigned char sliceCount, unsigned char posTableCount);

    IndexEntry(IndexEntry const & other);
    IndexEntry(IndexEntry && other) noexcept : IndexEntry(0) { *this = std::move(other); }
    IndexEntry & operator=(IndexEntry const & other);
    IndexEntry & operator=(IndexEntry && other) noexcept;
    ~IndexEntry() override { dropTail(); }

    /// Edit units from the place where this picture is shown to the one where
    /// it is stored.
    signed char temporalOffset() const noexcept { return temporalOffset_; }
    void temporalOffset(signed char temporalOffset) noexcept { temporalOffset_ = temporalOffset; }

    /// Edit units back to the key frame: 0 or negative.
    signed char keyFrameOffset() const noexcept { return keyFrameOffset_; }
    void keyFrameOffset(signed char keyFrameOffset) noexcept { keyFrameOffset_ = keyFrameOffset; }

    unsigned char flags() const noexcept { return flags_; }
    void flags(unsigned char flags) noexcept { flags_ = flags; }

    /// Whether decoding can start here.
    bool randomAccess() const noexcept { return flag(RANDOM_ACCESS); }
    void randomAccess(bool set) noexcept { flag(RANDOM_ACCESS, set); }

    /// Whether the edit unit has a sequence header.
    bool sequenceHeader() const noexcept { return flag(SEQUENCE_HEADER); }
    void sequenceHeader(bool set) noexcept { flag(SEQUENCE_HEADER, set); }

    /// Whether the picture depends on one that is shown earlier.
    bool forwardPrediction() const noexcept { return flag(FORWARD_PREDICTION); }
    void forwardPrediction(bool set) noexcept { flag(FORWARD_PREDICTION, set); }

    /// Whether the picture depends on one that is shown later.
    bool backwardPrediction() const noexcept { return flag(BACKWARD_PREDICTION); }
    void backwardPrediction(bool set) noexcept { flag(BACKWARD_PREDICTION, set); }

    /// Bytes from the start of the essence stream to the edit unit.
    UInt64 streamOffset() const noexcept { return streamOffset_; }
    void streamOffset(UInt64 streamOffset) noexcept { streamOffset_ = streamOffset; }

    unsigned int sliceOffsetCount() const noexcept { return sliceCount_; }

    /// Bytes from the start of the edit unit to slice `index + 1`.
    ///
    /// \throws Exceptions::IndexOutOfBounds when there is none.
    unsigned int sliceOffset(unsigned int index) const;

    /// Puts a slice offset before the one at `index`, which may be the count.
    ///
    /// \throws Exceptions::IndexOutOfBounds when `index` lies beyond, or when
    ///         the entry would have more than 65535 bytes.
    void addSliceOffset(unsigned char index, unsigned int sliceOffset);

    /// \throws Exceptions::IndexOutOfBounds when there is none.
    void removeSliceOffset(unsigned char index);

    unsigned int posTableCount() const noexcept { return posTableCount_; }

    /// An entry of the position table: edit units from the start of the edit
    /// unit to the element's first sample. 0/1 when a file leaves it
    /// undefined.
    ///
    /// \throws Exceptions::IndexOutOfBounds when there is none.
    /// \throws Exceptions::InvalidValue as Types::Rational::value.
    Templates::Rational<int> posTable(unsigned int index) const;

    /// Puts an entry of the position table before the one at `index`, which
    /// may be the count.
    ///
    /// \throws Exceptions::IndexOutOfBounds as addSliceOffset.
    void addPosTable(unsigned char index, Templates::Rational<int> const & position);

    /// \throws Exceptions::IndexOutOfBounds when there is none.
    void removePosTable(unsigned char index);

    /// Writes the wire form to the `serializedSize()` bytes at `bytes`.
    void write(unsigned char * bytes) const noexcept;

    void serialize(DataIO::DataSink & sink) const override;
    unsigned short serializedSize() const override;

private:
    static constexpr unsigned int FIXED_SIZE = 11;
    static constexpr unsigned int SLICE_SIZE = 4;
    static constexpr unsigned int POSITION_SIZE = 8;

    // Two slice offsets, as many as most files have, need no memory of their
    // own: tables of whole films are made of these entries.
    static constexpr unsigned int INSIDE_SIZE = 8;

    bool flag(Flags which) const noexcept { return (flags_ & which) != 0; }
    void flag(Flags which, bool set) noexcept
    {
        flags_ = static_cast<unsigned char>(set ? flags_ | which : flags_ & ~which);
    }

    using Tail = Templates::vector<unsigned char>;

    // The other's fixed fields with counts and a tail of its own.
    IndexEntry(IndexEntry const & other, unsigned int sliceCount, unsigned int posTableCount,
               unsigned char const * tail);

    // Slice offsets and position table in their wire form.
    unsigned int tailSize() const noexcept { return sizeOf(sliceCount_, posTableCount_) - FIXED_SIZE; }
    bool isTailInside() const noexcept { return tailSize() <= INSIDE_SIZE; }
    unsigned char const * tail() const noexcept { return isTailInside() ? inside_ : outside_; }
    Tail copyOfTail() const;
    void makeTail(unsigned char const * bytes);
    void takeTail(IndexEntry & other) noexcept;
    void dropTail() noexcept
    {
        if (!isTailInside())
            freeTail();
    }
    void freeTail() noexcept;

    void checkAdding(unsigned int index, unsigned int count, unsigned int size) const;

    UInt64 streamOffset_;
    union
    {
        unsigned char inside_[INSIDE_SIZE];
        unsigned char * outside_;
    };
    unsigned short sliceCount_;
    unsigned short posTableCount_;
    signed char temporalOffset_;
    signed char keyFrameOffset_;
    unsigned char flags_;
};

}
}
