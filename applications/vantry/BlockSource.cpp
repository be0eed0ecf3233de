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

BlockSource::BlockSource(std::string const & file) : PositionedDataSource(0), file_(file), blockStart_(0), blockEnd_(0)
{
    resize(file_.size());
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
    block_ = file_.window(position(), std::min(size, remaining()));
    blockEnd_ += block_.size();
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
