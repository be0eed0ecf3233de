#include "WindowSource.h"

#include "DataIO/BlockHolder.h"
#include "DataIO/Memory/MemoryBlockFactory.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace Vantry { namespace Application {

namespace {

class WindowBlock : public DataIO::Block
{
public:
    explicit WindowBlock(FileWindow window) : window_(std::move(window)), references_(1) {}

    unsigned char const * data() const override { return window_.begin(); }
    unsigned char * data() override { return window_.begin(); }
    UInt64 size() const override { return window_.size(); }
    int addReference() override { return ++references_; }

    int release() override
    {
        int const left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

    DataIO::BlockHolder createBlock(UInt64 size) override
    {
        return DataIO::Memory::MemoryBlockFactory::instance().create(size);
    }

private:
    FileWindow window_;
    std::atomic<int> references_;
};

}

WindowSource::WindowSource(std::string const & file, std::size_t sliceSize) :
    file_(file), sliceSize_(sliceSize), size_(file_.size()), position_(0)
{
}

Templates::auto_ptr<DataIO::Slice> WindowSource::read(UInt64)
{
    UInt64 const wanted = std::min<UInt64>(sliceSize_, size_ - position_);
    FileWindow window = file_.window(position_, wanted);
    UInt64 const size = window.size();
    if (size < wanted)
        size_ = position_ + size; // the file got shorter
    position_ += size;

    DataIO::BlockHolder const holder(new WindowBlock(std::move(window)));
    return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(holder.block(), 0, size));
}

UInt64 WindowSource::skip(UInt64 howMuch)
{
    UInt64 const skipped = std::min(howMuch, size_ - position_);
    position_ += skipped;
    return skipped;
}

}}
