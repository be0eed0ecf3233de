#include "DataIO/ChainDataSinkAdapter.h"

#include "DataIO/BlockFactory.h"
#include "DataIO/Chain.h"

#include <algorithm>

namespace Vantry { namespace DataIO {

ChainDataSinkAdapter::ChainDataSinkAdapter(Chain & chain, BlockFactory & factory, UInt64 blockSize, UInt64 position) :
    chain_(chain), factory_(factory), blockSize_(blockSize), position_(position), used_(0)
{
}

ChainDataSinkAdapter::~ChainDataSinkAdapter() = default;

void ChainDataSinkAdapter::write(unsigned char const * source, UInt64 howMuch)
{
    if (howMuch == 0)
        return;

    if (block_.block() == nullptr || block_.block()->size() - used_ < howMuch)
    {
        block_ = factory_.create(std::max(blockSize_, howMuch));
        used_ = 0;
    }

    // The chain merges it into its last slice if that one ends here.
    Templates::auto_ptr<Slice> slice(new Slice(block_.block(), used_, howMuch));
    std::copy_n(source, howMuch, block_.block()->data() + used_);
    chain_.push_back(slice);
    used_ += howMuch;
    position_ += howMuch;
}

UInt64 ChainDataSinkAdapter::absoluteOffset() const
{
    return position_;
}

}}
