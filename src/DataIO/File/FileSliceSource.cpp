#include "DataIO/File/FileSliceSource.h"

#include "DataIO/File/ReadableFile.h"
#include "DataIO/Memory/MemoryBlockFactory.h"

#include <utility>

namespace Vantry { namespace DataIO { namespace File {

namespace {

UInt64 const DEFAULT_MINIMUM_READ = 65536;
UInt64 const DEFAULT_MAXIMUM_READ = 2097152;
int const DEFAULT_BUFFER = -1;

Templates::SharedPtr<BlockFactory> memoryBlocks()
{
    return Templates::SharedPtr<BlockFactory>(&Memory::MemoryBlockFactory::instance(), false);
}

}

class FileSliceSource::Impl : public ReadableFile
{
public:
    Impl(unsigned short const * name, Templates::SharedPtr<BlockFactory> theFactory, UInt64 minimumRead,
         UInt64 maximumRead) :
        ReadableFile(name, DEFAULT_BUFFER),
        factory_(std::move(theFactory)),
        minimumRead_(minimumRead != 0 ? minimumRead : DEFAULT_MINIMUM_READ),
        maximumRead_(maximumRead != 0 ? maximumRead : DEFAULT_MAXIMUM_READ)
    {
    }

    Templates::auto_ptr<Slice> readSlice(UInt64 howMuch)
    {
        UInt64 const size = std::min(std::max(howMuch, minimumRead_), maximumRead_);
        BlockHolder const holder = factory_->create(size);
        UInt64 const got = read(holder.block()->data(), size);
        return Templates::auto_ptr<Slice>(new Slice(holder.block(), 0, got));
    }

private:
    Templates::SharedPtr<BlockFactory> factory_;
    UInt64 minimumRead_;
    UInt64 maximumRead_;
};

FileSliceSource::FileSliceSource(unsigned short const * name, UInt64 minimumRead, UInt64 maximumRead) :
    FileSliceSource(name, memoryBlocks(), minimumRead, maximumRead)
{
}

FileSliceSource::FileSliceSource(unsigned short const * name, Templates::SharedPtr<BlockFactory> factory,
                                 UInt64 minimumRead, UInt64 maximumRead) :
    impl_(new Impl(name, std::move(factory), minimumRead, maximumRead))
{
}

FileSliceSource::~FileSliceSource()
{
    delete impl_;
}

Templates::auto_ptr<Slice> FileSliceSource::read(UInt64 howMuch)
{
    return impl_->readSlice(howMuch);
}

UInt64 FileSliceSource::absoluteOffset() const
{
    return impl_->absoluteOffset();
}

bool FileSliceSource::endOfStream() const
{
    return impl_->remaining() == 0;
}

UInt64 FileSliceSource::skip(UInt64 howMuch)
{
    return impl_->skip(howMuch);
}

UInt64 FileSliceSource::remaining() const
{
    return impl_->remaining();
}

}}}
