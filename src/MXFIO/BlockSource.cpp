#include "MXFIO/BlockSource.h"

#include <algorithm>
#include <string_view>

namespace Vantry { namespace MXFIO {

namespace {

UInt64 const BLOCK_SIZE = 262144;

// Behind the area little is wanted: the rest of a last packet, at most.
UInt64 const SMALL_BLOCK_SIZE = 4096;

}

BlockSource::BlockSource(DataIO::RandomAccessDataSource & source, UInt64 areaEnd) :
    PositionedDataSource(source.absoluteOffset() + source.remaining(), source.absoluteOffset()),
    source_(source),
    areaEnd_(areaEnd),
    blockStart_(position())
{
}

BlockSource::~BlockSource()
{
    try
    {
        source_.seek(position());
    }
    catch (...)
    {
        // A destructor has no way to tell it; the next read will.
    }
}

UInt64 BlockSource::read(unsigned char * destination, UInt64 howMuch)
{
    UInt64 const wanted = std::min(howMuch, remaining());
    UInt64 done = take(destination, wanted);
    if (done == wanted)
        return done;

    UInt64 const ahead = position() < areaEnd_ ? std::min(areaEnd_ - position(), BLOCK_SIZE) : SMALL_BLOCK_SIZE;
    if (wanted - done < ahead)
    {
        hold(position(), ahead);
        return done + take(destination + done, wanted - done);
    }

    source_.seek(position());
    UInt64 const got = source_.read(destination + done, wanted - done);
    advance(got);
    return done + got;
}

void BlockSource::hold(UInt64 position, UInt64 howMuch)
{
    block_.clear();
    blockStart_ = source_.seek(position);
    block_.resize(std::min(howMuch, size() - blockStart_));

    UInt64 held = 0;
    while (held < block_.size())
    {
        UInt64 const got = source_.read(block_.data() + held, block_.size() - held);
        if (got == 0)
            break;
        held += got;
    }
    block_.resize(held);
}

bool BlockSource::holds(UInt64 position, UInt64 howMuch) const
{
    UInt64 const place = position - blockStart_;
    return place <= block_.size() && howMuch <= block_.size() - place;
}

bool BlockSource::holdsKeyStart(UInt64 position, UInt64 howMuch) const
{
    static std::string_view const START("\x06\x0E\x2B\x34");

    std::string_view const block(reinterpret_cast<char const *>(block_.data()), block_.size());
    UInt64 const first = std::min<UInt64>(position - blockStart_, block.size());
    return block.substr(first, howMuch).find(START) != std::string_view::npos;
}

// What the block has of the bytes at the position.
UInt64 BlockSource::take(unsigned char * destination, UInt64 howMuch)
{
    UInt64 const place = position() - blockStart_;
    if (place >= block_.size())
        return 0;

    UInt64 const size = std::min(howMuch, block_.size() - place);
    std::copy_n(block_.data() + place, size, destination);
    advance(size);
    return size;
}

}}
