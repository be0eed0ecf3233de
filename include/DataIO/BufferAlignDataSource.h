#pragma once

#include "DataIO/RandomAccessDataSource.h"
#include "Templates/Containers.h"

namespace Vantry { namespace DataIO {

/// Reads a source from aligned positions only, as unbuffered access to files
/// wants it. All sizes are in bytes.
class VANTRY_EXPORT BufferAlignDataSource : public RandomAccessDataSource
{
public:
    /// The source is lent and outlives this one; nobody else may move it.
    /// `bufferSize` is at least `alignment` - 1; a multiple of the alignment
    /// keeps all reads on it.
    ///
    /// \throws Exceptions::InvalidValue for other sizes, Exceptions::BadAlloc.
    BufferAlignDataSource(RandomAccessDataSource & source, unsigned int alignment, unsigned int bufferSize);
    BufferAlignDataSource(BufferAlignDataSource const &) = delete;
    BufferAlignDataSource & operator=(BufferAlignDataSource const &) = delete;
    ~BufferAlignDataSource() override;

    UInt64 absoluteOffset() const override;
    bool endOfStream() const override;
    UInt64 read(unsigned char * destination, UInt64 howMuch) override;
    UInt64 skip(UInt64 howMuch) override;
    UInt64 remaining() const override;
    void discard() override;
    UInt64 seek(UInt64 position) override;

private:
    UInt64 readBuffered(unsigned char * destination, UInt64 howMuch);
    bool refill();
    void moveCursor(UInt64 cursor);

    RandomAccessDataSource & source_;
    unsigned int align_;
    Templates::vector<unsigned char> buffer_;

    // How much of the buffer is filled, and how much of that was read. Behind
    // a seek the second is larger: bytes yet to come that are passed over.
    UInt64 valid_;
    UInt64 cursor_;
};

}}
