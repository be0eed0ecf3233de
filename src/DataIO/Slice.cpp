#include "DataIO/Slice.h"

#include "DataIO/BlockHolder.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "DataIO/SliceAllocator.h"

#include <new>

namespace Vantry { namespace DataIO {

namespace {

// Stands in where a slice has no block, so that none ever tests for null.
class EmptyBlock final : public Block
{
public:
    constexpr EmptyBlock() = default;

    unsigned char const * data() const override { return &nothing_; }
    unsigned char * data() override { return &nothing_; }
    UInt64 size() const override { return 0; }
    int addReference() override { return 1; }
    int release() override { return 1; }
    BlockHolder createBlock(UInt64 size) override { return Memory::MemoryBlockFactory::instance().create(size); }

private:
    unsigned char nothing_ = 0;
};

// Static slices may be made before, and freed after, any static object of
// this module: the block is there from the start and never destroyed.
union EverLasting
{
    constexpr EverLasting() : block() {}
    ~EverLasting() {}

    EmptyBlock block;
};

EverLasting emptyBlock;

}

static_assert(sizeof(Slice) == SliceAllocator::CELL_SIZE, "a slice fills a cell");

Slice::Slice() noexcept :
    block_(&emptyBlock.block), offset_(0), size_(0), data_(block_->data()), next_(nullptr), previous_(nullptr)
{
}

Slice::Slice(Block * block, UInt64 offset, UInt64 size) :
    block_(block), offset_(offset), size_(size), data_(block->data()), next_(nullptr), previous_(nullptr)
{
    block_->addReference();
}

Slice::Slice(Slice const & other) :
    block_(other.block_),
    offset_(other.offset_),
    size_(other.size_),
    data_(other.data_),
    next_(nullptr),
    previous_(nullptr)
{
    block_->addReference();
}

Slice & Slice::operator=(Slice const & other)
{
    if (this == &other)
        return *this;

    other.block_->addReference();
    block_->release();
    block_ = other.block_;
    offset_ = other.offset_;
    size_ = other.size_;
    data_ = other.data_;
    next_ = nullptr;
    previous_ = nullptr;
    return *this;
}

Slice::~Slice()
{
    block_->release();
}

void * Slice::operator new(std::size_t size)
{
    // A class derived from this one may be too large for a cell.
    return size <= SliceAllocator::CELL_SIZE ? SliceAllocator::allocate() : Platform::allocateOrThrow(size);
}

void Slice::operator delete(void * pointer, std::size_t size) noexcept
{
    if (size > SliceAllocator::CELL_SIZE)
        Platform::malloc_alloc::deallocate(pointer, size);
    else if (pointer != nullptr)
        SliceAllocator::deallocate(pointer);
}

Templates::auto_ptr<Slice> Slice::splice(unsigned char const * at)
{
    Templates::auto_ptr<Slice> rest(new Slice(*this));
    UInt64 const kept = static_cast<UInt64>(at - begin());
    rest->cropBegin(kept);
    size_ = kept;
    return rest;
}

}}
