#include "DataIO/SliceReader.h"

#include "DataIO/ByteQueue.h"
#include "Exceptions/Check.h"
#include "Exceptions/NotEnoughData.h"

#include <utility>

namespace Vantry { namespace DataIO {

namespace {

char const * const NOT_ENOUGH_DATA = "Not enough data to read from the source";

}

class SliceReader::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit Impl(Templates::SharedPtr<SliceSource> from) : source(std::move(from)) {}

    bool ended() const { return cache.empty() && source->endOfStream(); }

    Templates::SharedPtr<SliceSource> const source;
    ByteQueue cache;
};

SliceReader::SliceReader(Templates::SharedPtr<SliceSource> source) : impl_(new Impl(std::move(source))) {}

SliceReader::~SliceReader()
{
    delete impl_;
}

Templates::auto_ptr<Slice> SliceReader::read(UInt64 howMuch)
{
    if (howMuch == 0 || impl_->ended())
        return Templates::auto_ptr<Slice>(new Slice);

    Templates::auto_ptr<Slice> first = nextSlice(howMuch);
    UInt64 const rest = howMuch - first->size();
    if (rest == 0)
        return first;

    // Collected before anything is copied: `howMuch` may be a claim that the
    // stream doesn't fulfil.
    Chain pieces;
    pieces.push_back(first);
    try
    {
        read(rest, pieces);
        return pieces.makeSlice(0, pieces.data_size());
    }
    catch (...)
    {
        unget(pieces);
        throw;
    }
}

void SliceReader::read(UInt64 howMuch, Chain & destination)
{
    while (howMuch > 0 && !impl_->ended())
    {
        Templates::auto_ptr<Slice> piece = nextSlice(howMuch);
        howMuch -= piece->size();
        destination.push_back(piece);
    }
}

UInt64 SliceReader::absoluteOffset() const
{
    return impl_->source->absoluteOffset() - impl_->cache.size();
}

bool SliceReader::endOfStream() const
{
    return impl_->ended();
}

UInt64 SliceReader::skip(UInt64 howMuch)
{
    UInt64 const before = absoluteOffset();
    UInt64 const rest = howMuch - impl_->cache.drop(howMuch);
    if (rest > 0)
        impl_->source->skip(rest);
    return absoluteOffset() - before;
}

Templates::auto_ptr<Slice> SliceReader::nextSlice(UInt64 maximum)
{
    Templates::auto_ptr<Slice> slice = impl_->cache.empty() ? impl_->source->read(maximum) : impl_->cache.takeFirst();

    // Some sources say so that they have ended.
    if (slice.get() == nullptr)
        return Templates::auto_ptr<Slice>(new Slice);
    if (slice->size() > maximum)
        unget(slice->splice(slice->begin() + maximum));
    return slice;
}

Templates::auto_ptr<Slice> SliceReader::nextSliceAligned(UInt64 maximum, UInt64 alignment)
{
    Templates::auto_ptr<Slice> slice = nextSlice(maximum);
    if (slice->size() == maximum || slice->size() % alignment == 0)
        return slice;

    if (slice->size() < alignment)
    {
        unget(slice);
        return read(alignment);
    }

    unget(slice->splice(slice->end() - slice->size() % alignment));
    return slice;
}

Templates::auto_ptr<Slice> SliceReader::readAligned(UInt64 howMuch)
{
    if (howMuch == 0)
        return Templates::auto_ptr<Slice>(new Slice);
    VANTRY_CHECK_TEXT(!impl_->ended(), "!this -> eof ()", NotEnoughData, NOT_ENOUGH_DATA);

    Templates::auto_ptr<Slice> slice = read(howMuch);
    if (slice->size() < howMuch)
    {
        unget(slice);
        VANTRY_FAIL(NotEnoughData, NOT_ENOUGH_DATA);
    }
    return slice;
}

void SliceReader::unget(Templates::auto_ptr<Slice> slice)
{
    impl_->cache.push_front(slice);
}

void SliceReader::unget(Chain & chain)
{
    impl_->cache.push_front(chain);
}

UInt64 SliceReader::cachedSize() const
{
    return impl_->cache.size();
}

}}
