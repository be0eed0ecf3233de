#pragma once

#include "DataIO/SliceSink.h"
#include "DataIO/SliceSource.h"

namespace Vantry { namespace DataIO {

/// A queue between one who writes slices and one who reads them. Two threads
/// need a lock of their own around it.
class VANTRY_EXPORT BufferSliceSource : public SliceSource, public SliceSink
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \throws Exceptions::BadAlloc.
    BufferSliceSource();
    BufferSliceSource(BufferSliceSource const &) = delete;
    BufferSliceSource & operator=(BufferSliceSource const &) = delete;
    ~BufferSliceSource() override;

    /// The oldest slice, whole, whatever `howMuch` says. Empty when there is
    /// nothing yet.
    ///
    /// \throws Exceptions::IOError when there will be nothing any more.
    Templates::auto_ptr<Slice> read(UInt64 howMuch) override;

    /// How many bytes were read and skipped.
    UInt64 absoluteOffset() const override;

    /// Whether the queue is closed and empty.
    bool endOfStream() const override;

    /// Drops up to `howMuch` of the bytes that are there.
    UInt64 skip(UInt64 howMuch) override;

    /// Says that nothing will be written any more.
    virtual void close();
    virtual bool closed() const;

    /// How many bytes are there.
    virtual UInt64 accessible() const;

    /// \throws Exceptions::IOError when the queue is closed.
    void write(Templates::auto_ptr<Slice> slice) override;

private:
    class Impl;
    Impl * impl_;
};

}}
