#pragma once

#include "DataIO/RandomAccessDataSink.h"
#include "Exceptions/IOError.h"
#include "MXFIO/Creator.h"
#include "support/Bytes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Vantry { namespace Tests {

/// A sink in memory, with a fault after so many writes.
class BytesFile : public DataIO::RandomAccessDataSink
{
public:
    explicit BytesFile(UInt64 runInSize = 0, unsigned int goodWrites = ~0u) :
        bytes(runInSize), position_(runInSize), goodWrites_(goodWrites)
    {
    }

    void write(unsigned char const * source, UInt64 howMuch) override
    {
        if (goodWrites_-- == 0)
            throw Exceptions::IOError("disk full", __FILE__, __LINE__);
        bytes.resize(std::max<UInt64>(bytes.size(), position_ + howMuch));
        std::copy_n(source, howMuch, bytes.data() + position_);
        position_ += howMuch;
    }

    UInt64 absoluteOffset() const override { return position_; }
    UInt64 seek(UInt64 position) override { return position_ = std::min<UInt64>(position, bytes.size()); }

    Bytes bytes;

private:
    UInt64 position_;
    unsigned int goodWrites_;
};

/// Goes back to all that can be done better once a file is there.
inline void finish(MXFIO::Creator & creator, BytesFile & file)
{
    creator.finishWork(file);
    EXPECT_TRUE(creator.updatePartitions(file, true));
}

inline void write(MXFIO::Creator & creator)
{
    while (creator.writeUnit(false) != MXFIO::PullCreator::PullDone)
        ;
}

}}
