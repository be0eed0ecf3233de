#include "BlockSource.h"

#include <algorithm>

namespace Vantry { namespace Application {

namespace {

// Large enough that calls to the system don't count, small enough to stay in
// the processor's cache on the way to the output.
UInt64 const BLOCK_SIZE = 1 << 20;

// What is read behind a jump: the next one may follow soon.
UInt64 const BLOCK_SIZE_AFTER_JUMP = 1 << 16;

}

BlockSource::BlockSource(std::unique_ptr<DataIO::RandomAccessDataSource> file) :
    PositionedDataSource(file->absoluteOffset() + file->remaining()),
    file_(std::move(file)),
    block_(BLOCK_SIZE),
    blockStart_(0),
    blockEnd_(0)
{
}

BytesInMemory BlockSource::lend(UInt64 howMuch)
{
    if (ahead().size == 0)
        readBlock();

    BytesInMemory lent = ahead();
    lent.size = std::min<UInt64>(howMuch, lent.size);
    advance(lent.size);
    return lent;
}

void BlockSource::readBlock()
{
    if (blockGoes_ && blockEnd_ > blockStart_)
        blockGoes_();

    UInt64 const size = position() == blockEnd_ ? BLOCK_SIZE : BLOCK_SIZE_AFTER_JUMP;
    blockStart_ = blockEnd_ = position();
    file_->seek(position());
    blockEnd_ += file_->read(block_.data(), std::min(size, remaining()));
}

UInt64 BlockSource::read(unsigned char * destination, UInt64 howMuch)
{
    UInt64 done = 0;
    while (done < howMuch)
    {
        BytesInMemory const lent = lend(howMuch - done);
        if (lent.size == 0)
            break;
        std::copy_n(lent.bytes, lent.size, destination + done);
        done += lent.size;
    }
    return done;
}

}}
