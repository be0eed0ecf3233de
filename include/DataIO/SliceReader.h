#pragma once

#include "DataIO/SliceSource.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace DataIO {

class Chain;

/// Reads as much from a slice source as is asked for, whatever sizes the
/// source gives, and takes back what was read too much.
///
/// What was given back, or read and not yet delivered, comes before what the
/// source still holds. A source that has nothing yet, but has not ended, is
/// asked until it gives something. All sizes are in bytes.
class VANTRY_EXPORT SliceReader : public SliceSource
{
public:
    /// \throws Exceptions::BadAlloc.
    explicit SliceReader(Templates::SharedPtr<SliceSource> source);
    SliceReader(SliceReader const &) = delete;
    SliceReader & operator=(SliceReader const &) = delete;
    ~SliceReader() override;

    /// One slice of `howMuch` bytes, a shorter one at the end of the stream.
    /// Bytes are copied only if the range crosses from one block to another,
    /// into a block of the first one's kind.
    ///
    /// \throws Exceptions::IOError when the medium fails, Exceptions::BadAlloc;
    ///         the reader then stands where it was.
    Templates::auto_ptr<Slice> read(UInt64 howMuch) override;

    /// Appends `howMuch` bytes to `destination`, fewer at the end of the
    /// stream. Nothing is copied.
    void read(UInt64 howMuch, Chain & destination);

    UInt64 absoluteOffset() const override;
    bool endOfStream() const override;
    UInt64 skip(UInt64 howMuch) override;

    /// Up to `maximum` bytes, as many as come without copying. Empty at the
    /// end of the stream, or when the source has nothing yet.
    Templates::auto_ptr<Slice> nextSlice(UInt64 maximum);

    /// Like nextSlice, but what is shorter than `maximum` has a multiple of
    /// `alignment`, which is not 0. Up to that many bytes are joined by
    /// copying where slices are too short. Only the end of the stream may
    /// come unaligned.
    Templates::auto_ptr<Slice> nextSliceAligned(UInt64 maximum, UInt64 alignment);

    /// One slice of exactly `howMuch` bytes.
    ///
    /// \throws Exceptions::NotEnoughData at the end of the stream; what was
    ///         there can still be read.
    Templates::auto_ptr<Slice> readAligned(UInt64 howMuch);

    /// Puts bytes ahead of all others. An empty slice is dropped.
    void unget(Templates::auto_ptr<Slice> slice);

    /// Puts all of `chain` ahead, in its order, and leaves it empty.
    void unget(Chain & chain);

    /// Bytes that were given back, or read and not yet delivered.
    UInt64 cachedSize() const;

private:
    class Impl;
    Impl * impl_;
};

}}
