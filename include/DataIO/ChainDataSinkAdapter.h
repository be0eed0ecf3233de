#pragma once

#include "DataIO/BlockHolder.h"
#include "DataIO/DataSink.h"

namespace Vantry { namespace DataIO {

class BlockFactory;
class Chain;

/// A data sink that appends what it gets to a chain. The bytes are copied
/// into blocks, small writes side by side into the same one.
class VANTRY_EXPORT ChainDataSinkAdapter : public DataSink
{
public:
    /// Chain and factory are lent. Blocks have `blockSize` bytes, or the size
    /// of a write that needs more; the first byte counts as the one at
    /// `position` of the stream.
    ChainDataSinkAdapter(Chain & chain, BlockFactory & factory, UInt64 blockSize, UInt64 position = 0);
    ~ChainDataSinkAdapter() override;

    /// \throws Exceptions::BadAlloc; nothing has been taken then.
    void write(unsigned char const * source, UInt64 howMuch) override;

    UInt64 absoluteOffset() const override;

private:
    Chain & chain_;
    BlockFactory & factory_;
    UInt64 blockSize_;
    UInt64 position_;
    BlockHolder block_;
    UInt64 used_;
};

}}
