#include "KLV/Value.h"

#include "Exceptions/InvalidLength.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace KLV {

namespace {

// A length is a claim: the end it gives may lie behind every position.
UInt64 endOf(UInt64 start, UInt64 length)
{
    UInt64 const last = std::numeric_limits<UInt64>::max();
    return length > last - start ? last : start + length;
}

}

Value::Value(DataIO::DataSource & source, UInt64 length) :
    source_(source), totalLength_(length), endOffset_(endOf(source.absoluteOffset(), length))
{
}

Value::~Value()
{
    try
    {
        Value::discard();
    }
    catch (...)
    {
        // A destructor has no way to tell it.
    }
}

UInt64 Value::absoluteOffset() const
{
    return source_.absoluteOffset();
}

bool Value::endOfStream() const
{
    return remaining() == 0;
}

UInt64 Value::read(unsigned char * destination, UInt64 howMuch)
{
    UInt64 const size = std::min(howMuch, remaining());
    return size == 0 ? 0 : source_.read(destination, size);
}

UInt64 Value::skip(UInt64 howMuch)
{
    UInt64 const size = std::min(howMuch, remaining());
    return size == 0 ? 0 : source_.skip(size);
}

UInt64 Value::remaining() const
{
    UInt64 const offset = source_.absoluteOffset();
    return offset < endOffset_ ? endOffset_ - offset : 0;
}

void Value::discard()
{
    UInt64 const rest = Value::remaining();
    if (rest != 0)
        source_.skip(rest);
}

void Value::readValue(unsigned char * destination, UInt64 howMuch)
{
    for (UInt64 done = 0; done < howMuch;)
    {
        UInt64 const got = read(destination + done, howMuch - done);
        if (got == 0)
            throw Exceptions::InvalidLength(destination, done, "Invalid data size in Value", __FILE__, __LINE__);
        done += got;
    }
}

}}
