#include "WholeSoundPackets.h"

#include "BigEndianText.h"
#include "Essence/AES3/S302M/Header.h"
#include "Exceptions/InvalidFormat.h"

#include <algorithm>
#include <fmt/format.h>

namespace Vantry { namespace Application {

namespace {

// The first bytes of a header, which tell the size of what follows it.
UInt64 const SIZE_SIZE = 2;

}

Templates::auto_ptr<DataIO::Slice> WholeSoundPackets::read(UInt64 howMuch)
{
    UInt64 const offset = absoluteOffset();
    Templates::auto_ptr<DataIO::Slice> slice = packets_.nextSlice(howMuch);
    follow(*slice, offset);

    UInt64 const end = offset + slice->size();
    if (endOfStream() && end < nextPacket_)
        throw Exceptions::InvalidFormat(fmt::format("The stream of sound is cut off at byte {}, {} bytes short of its "
                                                    "packet",
                                                    end, nextPacket_ - end)
                                            .c_str(),
                                        __FILE__, __LINE__);
    return slice;
}

// Passed over bytes are looked at all the same.
UInt64 WholeSoundPackets::skip(UInt64 howMuch)
{
    UInt64 skipped = 0;
    while (skipped < howMuch && !endOfStream())
        skipped += read(howMuch - skipped)->size();
    return skipped;
}

void WholeSoundPackets::follow(DataIO::Slice const & slice, UInt64 offset)
{
    while (nextPacket_ + size_.size() < offset + slice.size())
    {
        UInt64 const at = nextPacket_ + size_.size() - offset;
        UInt64 const taken = std::min(SIZE_SIZE - size_.size(), slice.size() - at);
        size_.append(reinterpret_cast<char const *>(slice.begin()) + at, taken);
        if (size_.size() < SIZE_SIZE)
            return;
        nextPacket_ += Essence::AES3::S302M::Header::size() + numberAt<UInt16>(size_, 0);
        size_.clear();
    }
}

}}
