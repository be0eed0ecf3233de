#include "DataIO/BitSliceReader.h"

#include "DataIO/Chain.h"

#include <utility>

namespace Vantry { namespace DataIO {

namespace {

// How many bits of the current byte are taken when none is left. There always
// are some taken: no byte is read ahead of its first bit.
unsigned int const ALL_BITS = 8;

}

class BitSliceReader::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Chain consumed;
    unsigned int position = ALL_BITS;
    unsigned char current = 0;
};

BitSliceReader::BitSliceReader(Templates::SharedPtr<SliceSource> source) :
    SliceReader(std::move(source)), impl_(new Impl)
{
}

BitSliceReader::~BitSliceReader()
{
    delete impl_;
}

void BitSliceReader::readCache(Chain & chain)
{
    chain.push_back(impl_->consumed);
    impl_->position = ALL_BITS;
}

void BitSliceReader::releaseCache()
{
    impl_->consumed.clear();
    impl_->position = ALL_BITS;
}

bool BitSliceReader::isStuffingByte(unsigned char)
{
    return false;
}

void BitSliceReader::readBits(unsigned int count, unsigned char * destination)
{
    if (count == 0)
        return;

    UInt64 const bits = UInt64(impl_->position) + count;
    UInt64 const bytes = (bits - 1) / 8;
    unsigned int const left = ALL_BITS - impl_->position;
    unsigned int before = impl_->current;
    takeBytes(bytes, destination);

    // The bits left of the byte before go ahead of each byte.
    UInt64 const size = (UInt64(count) + 7) / 8;
    for (UInt64 i = 0; i < size; ++i)
    {
        unsigned int const byte = i < bytes ? destination[i] : 0;
        destination[i] = static_cast<unsigned char>(before << (8 - left) | byte >> left);
        before = byte;
    }

    unsigned int const unused = static_cast<unsigned int>(8 * size - count);
    destination[size - 1] = static_cast<unsigned char>(destination[size - 1] >> unused << unused);
    impl_->position = static_cast<unsigned int>(bits - 8 * bytes);
}

unsigned int BitSliceReader::skipBits(unsigned int count)
{
    UInt64 const bits = UInt64(impl_->position) + count;
    UInt64 const bytes = (bits - 1) / 8;
    takeBytes(bytes, nullptr);
    impl_->position = static_cast<unsigned int>(bits - 8 * bytes);
    return count;
}

// Takes bytes that carry bits, and what is stuffed in between, in runs as
// they lie in the cache. The destination may be null.
void BitSliceReader::takeBytes(UInt64 count, unsigned char * destination)
{
    while (count > 0)
    {
        impl_->position = ALL_BITS;
        Templates::auto_ptr<Slice> run = cachedSize() > 0 ? nextSlice(count) : readAligned(1);
        for (unsigned char const * byte = run->begin(); byte != run->end(); ++byte)
        {
            if (isStuffingByte(*byte))
                continue;
            impl_->current = *byte;
            if (destination != nullptr)
                *destination++ = *byte;
            --count;
        }
        impl_->consumed.push_back(run);
    }
}

}}
