#include "Essence/MPEG/PESHeader.h"

#include "DataIO/SliceReader.h"
#include "Platform/BigEndian.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace Essence { namespace MPEG {

namespace {

using Byte = unsigned char;

// Few headers are longer.
UInt64 const WINDOW_SIZE = 64;

unsigned int const TIME_STAMP = 2;
unsigned int const TWO_TIME_STAMPS = 3;
UInt64 const TIME_STAMP_SIZE = 5;

// Takes bytes from a reader, which gets back in the end what was fetched too
// many.
class HeaderBytes
{
public:
    HeaderBytes(DataIO::SliceReader & reader, UInt64 most) : reader_(reader), most_(most), count_(0) {}
    HeaderBytes(HeaderBytes const &) = delete;
    HeaderBytes & operator=(HeaderBytes const &) = delete;

    ~HeaderBytes()
    {
        if (window_.get() != nullptr)
            reader_.unget(window_);
    }

    // False at the end.
    bool take(Byte & byte)
    {
        if (!fetch())
            return false;
        byte = *window_->begin();
        pass(1);
        return true;
    }

    void skip(UInt64 howMuch)
    {
        while (howMuch > 0 && fetch())
        {
            UInt64 const step = std::min(howMuch, window_->size());
            pass(step);
            howMuch -= step;
        }
    }

    // Bytes taken and skipped.
    UInt64 count() const noexcept { return count_; }

private:
    bool fetch()
    {
        while (window_.get() == nullptr || window_->size() == 0)
        {
            if (count_ == most_ || reader_.endOfStream())
                return false;
            window_ = reader_.nextSlice(std::min(WINDOW_SIZE, most_ - count_));
        }
        return true;
    }

    void pass(UInt64 howMuch)
    {
        window_->cropBegin(howMuch);
        count_ += howMuch;
    }

    DataIO::SliceReader & reader_;
    UInt64 const most_;
    UInt64 count_;
    Templates::auto_ptr<DataIO::Slice> window_;
};

// 33 bits, in groups of 3, 15 and 15, each with a marker bit behind it.
void readTimeStamp(HeaderBytes & bytes, Byte first, UInt64 & pts)
{
    unsigned int const kind = first >> 4;
    if (kind != TIME_STAMP && kind != TWO_TIME_STAMPS)
        return;

    Byte rest[TIME_STAMP_SIZE - 1];
    for (Byte & byte : rest)
        if (!bytes.take(byte))
            return;

    UInt64 const high = first >> 1 & 7;
    UInt64 const middle = Platform::readBigEndian<unsigned short>(rest) >> 1;
    UInt64 const low = Platform::readBigEndian<unsigned short>(rest + 2) >> 1;
    pts = high << 30 | middle << 15 | low;
    if (kind == TWO_TIME_STAMPS)
        bytes.skip(TIME_STAMP_SIZE);
}

// The header of MPEG-2 form behind its first byte.
void readCountedHeader(HeaderBytes & bytes, UInt64 & pts)
{
    Byte flags = 0;
    Byte length = 0;
    if (!bytes.take(flags) || !bytes.take(length))
        return;

    UInt64 const end = bytes.count() + length;
    Byte first = 0;
    if ((flags & 0x80) != 0 && bytes.take(first))
        readTimeStamp(bytes, first, pts);
    bytes.skip(end - std::min(end, bytes.count()));
}

UInt64 bytesIn(header_PACKET const * packet)
{
    unsigned short const length = packet != nullptr ? Platform::readBigEndian<unsigned short>(packet->packetLength) : 0;
    return length != 0 ? length : std::numeric_limits<unsigned int>::max();
}

}

unsigned int readHeader(DataIO::SliceReader & reader, header_PACKET const * packet, UInt64 & pts)
{
    HeaderBytes bytes(reader, bytesIn(packet));
    bool isMore = true;
    for (Byte byte = 0; isMore && bytes.take(byte);)
        switch (byte >> 6)
        {
        case 0:
            readTimeStamp(bytes, byte, pts);
            isMore = false;
            break;
        case 1:
            bytes.skip(1);
            break;
        case 2:
            readCountedHeader(bytes, pts);
            isMore = false;
            break;
        default: // stuffing
            break;
        }
    return static_cast<unsigned int>(bytes.count());
}

}}}
