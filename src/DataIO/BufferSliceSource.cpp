#include "DataIO/BufferSliceSource.h"

#include "DataIO/ByteQueue.h"
#include "Exceptions/Check.h"
#include "Exceptions/IOError.h"

namespace Vantry { namespace DataIO {

class BufferSliceSource::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    ByteQueue queue_;
    bool closed_ = false;
    UInt64 delivered_ = 0;
};

BufferSliceSource::BufferSliceSource() : impl_(new Impl) {}

BufferSliceSource::~BufferSliceSource()
{
    delete impl_;
}

Templates::auto_ptr<Slice> BufferSliceSource::read(UInt64)
{
    if (impl_->queue_.empty())
    {
        VANTRY_CHECK(!impl_ -> closed_, IOError, "BufferSliceSource::read: Source closed and empty!");
        return Templates::auto_ptr<Slice>(new Slice);
    }

    Templates::auto_ptr<Slice> slice = impl_->queue_.takeFirst();
    impl_->delivered_ += slice->size();
    return slice;
}

UInt64 BufferSliceSource::absoluteOffset() const
{
    return impl_->delivered_;
}

bool BufferSliceSource::endOfStream() const
{
    return accessible() == 0 && closed();
}

UInt64 BufferSliceSource::skip(UInt64 howMuch)
{
    UInt64 const dropped = impl_->queue_.drop(howMuch);
    impl_->delivered_ += dropped;
    return dropped;
}

void BufferSliceSource::close()
{
    impl_->closed_ = true;
}

bool BufferSliceSource::closed() const
{
    return impl_->closed_;
}

UInt64 BufferSliceSource::accessible() const
{
    return impl_->queue_.size();
}

void BufferSliceSource::write(Templates::auto_ptr<Slice> slice)
{
    VANTRY_CHECK(this -> closed () == false, IOError, "BufferSliceSource already closed.");
    impl_->queue_.push_back(slice);
}

}}
