#include "GenericContainer/ClipWrapper/KLVLengthUpdater.h"

#include "DataIO/Chain.h"

namespace Vantry { namespace GenericContainer { namespace ClipWrapper {

KLVLengthUpdater::KLVLengthUpdater() = default;
KLVLengthUpdater::~KLVLengthUpdater() = default;

void KLVLengthUpdater::slice(Templates::auto_ptr<DataIO::Slice> slice)
{
    slice_ = slice;
}

bool KLVLengthUpdater::prepare()
{
    return slice_.get() != nullptr;
}

void KLVLengthUpdater::patch(UInt64 offset, UInt64 & position, DataIO::Chain & chain)
{
    position = offset;
    if (slice_.get() != nullptr)
        chain.push_back(slice_);
}

}}}
