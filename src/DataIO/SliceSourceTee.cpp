#include "DataIO/SliceSourceTee.h"

#include "DataIO/SliceReader.h"
#include "DataIO/SliceSink.h"

#include <utility>

namespace Vantry { namespace DataIO {

class SliceSourceTee::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(Templates::SharedPtr<SliceSource> source, SliceSink * to) : reader(std::move(source)), sink(to) {}

    SliceReader reader;
    SliceSink * const sink;
};

SliceSourceTee::SliceSourceTee(Templates::SharedPtr<SliceSource> source, SliceSink * sink) :
    impl_(new Impl(std::move(source), sink))
{
}

SliceSourceTee::~SliceSourceTee()
{
    delete impl_;
}

Templates::auto_ptr<Slice> SliceSourceTee::read(UInt64 howMuch)
{
    Templates::auto_ptr<Slice> slice = impl_->reader.read(howMuch);
    if (impl_->sink != nullptr)
        impl_->sink->write(Templates::auto_ptr<Slice>(new Slice(*slice)));
    return slice;
}

UInt64 SliceSourceTee::absoluteOffset() const
{
    return impl_->reader.absoluteOffset();
}

bool SliceSourceTee::endOfStream() const
{
    return impl_->reader.endOfStream();
}

UInt64 SliceSourceTee::skip(UInt64 howMuch)
{
    if (impl_->sink == nullptr)
        return impl_->reader.skip(howMuch);

    UInt64 moved = 0;
    while (moved < howMuch && !impl_->reader.endOfStream())
    {
        Templates::auto_ptr<Slice> slice = impl_->reader.nextSlice(howMuch - moved);
        moved += slice->size();
        if (slice->size() != 0)
            impl_->sink->write(slice);
    }
    return moved;
}

}}
