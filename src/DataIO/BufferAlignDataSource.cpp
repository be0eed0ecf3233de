#include "DataIO/BufferAlignDataSource.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"

#include <algorithm>

namespace Vantry { namespace DataIO {

BufferAlignDataSource::BufferAlignDataSource(RandomAccessDataSource & source, unsigned int alignment,
                                             unsigned int bufferSize) :
    source_(source), align_(alignment), valid_(0), cursor_(0)
{
    VANTRY_CHECK(align_ > 0, InvalidValue, "Alignment must be higher than zero");
    if (bufferSize == 0)
        VANTRY_CHECK(align_ == 1, InvalidValue, "Alignment must be one if no buffer.");
    VANTRY_CHECK(align_ - 1 <= bufferSize, InvalidValue, "Alignment size must be smaller than buffer size.");
    buffer_.resize(bufferSize);
}

BufferAlignDataSource::~BufferAlignDataSource() = default;

// Where bytes of the buffer are still to be passed over, the difference wraps
// around and adds what it should.
UInt64 BufferAlignDataSource::absoluteOffset() const
{
    return source_.absoluteOffset() - (valid_ - cursor_);
}

UInt64 BufferAlignDataSource::remaining() const
{
    return source_.remaining() + (valid_ - cursor_);
}

bool BufferAlignDataSource::endOfStream() const
{
    return remaining() == 0;
}

UInt64 BufferAlignDataSource::read(unsigned char * destination, UInt64 howMuch)
{
    UInt64 done = 0;
    while (done < howMuch && remaining() > 0)
    {
        UInt64 const rest = howMuch - done;
        if (cursor_ < valid_)
        {
            done += readBuffered(destination + done, rest);
        }
        else if (rest <= buffer_.size() || cursor_ != 0)
        {
            if (!refill())
                break;
        }
        else
        {
            UInt64 const direct = source_.read(destination + done, rest - rest % align_);
            if (direct == 0)
                break;
            done += direct;
        }
    }
    return done;
}

UInt64 BufferAlignDataSource::skip(UInt64 howMuch)
{
    UInt64 const passed = std::min(howMuch, remaining());
    seek(absoluteOffset() + passed);
    return passed;
}

void BufferAlignDataSource::discard()
{
    skip(remaining());
}

UInt64 BufferAlignDataSource::seek(UInt64 position)
{
    if (position == absoluteOffset())
        return position;

    UInt64 const sourceOffset = source_.absoluteOffset();
    if (position <= sourceOffset && sourceOffset - position <= valid_)
    {
        moveCursor(valid_ - (sourceOffset - position));
        return position;
    }

    position = std::min(position, sourceOffset + source_.remaining());
    valid_ = 0;
    cursor_ = 0;
    UInt64 const rest = position % align_;
    source_.seek(position - rest);
    cursor_ = rest;
    return position;
}

UInt64 BufferAlignDataSource::readBuffered(unsigned char * destination, UInt64 howMuch)
{
    UInt64 const size = std::min(howMuch, valid_ - cursor_);
    std::copy_n(buffer_.data() + cursor_, size, destination);
    moveCursor(cursor_ + size);
    return size;
}

// Fills the empty buffer; what is to be passed over may be all that comes.
bool BufferAlignDataSource::refill()
{
    UInt64 const size = std::min<UInt64>(source_.remaining(), buffer_.size());
    UInt64 const got = size == 0 ? 0 : source_.read(buffer_.data(), size);
    if (got > cursor_)
        valid_ = got;
    else
        cursor_ -= got;
    return got > 0;
}

void BufferAlignDataSource::moveCursor(UInt64 cursor)
{
    cursor_ = cursor;
    if (cursor_ == valid_)
    {
        cursor_ = 0;
        valid_ = 0;
    }
}

}}
