#include "DataIO/ChainDataSinkAdapter.h"
#include "DataIO/ChainSinkDataAdapter.h"

#include "support/Slices.h"

#include <gtest/gtest.h>

namespace Vantry { namespace Tests {

using DataIO::Chain;
using DataIO::ChainDataSinkAdapter;
using DataIO::ChainSinkDataAdapter;

TEST(ChainAdapters, PassBytesThroughChains)
{
    CountingBlocks blocks;
    Chain from, to;
    for (UInt64 size : {3, 7, 40, 60, 150, 1})
        from.push_back(blocks.slice(counting(size)));

    int const made = blocks.made();
    ChainDataSinkAdapter sink(to, blocks, 100, 9);
    ChainSinkDataAdapter writer(sink);
    writer.write(from);

    EXPECT_EQ(bytesOf(to), bytesOf(from));
    EXPECT_EQ(sink.absoluteOffset(), 270u);
    EXPECT_EQ(blocks.made(), made + 4) << "50, 60, 150 and 1";
    EXPECT_EQ(to.slice_count(), 4u);
}

// What the chain got from elsewhere stays untouched, and what left the chain
// as well.
TEST(ChainAdapters, ExtendNothingButTheirOwnSlices)
{
    CountingBlocks blocks;
    Chain chain, gone;
    ChainDataSinkAdapter sink(chain, blocks, 100);
    Bytes const bytes = counting(10);

    sink.write(bytes.data(), 4);
    chain.chopEnd(2, gone);
    sink.write(bytes.data() + 4, 2);
    chain.push_back(blocks.slice(counting(5)));
    chain.previous()->cropEnd(2);
    sink.write(bytes.data() + 6, 4);
    sink.write(nullptr, 0);

    EXPECT_EQ(bytesOf(gone), hex("02 03"));
    EXPECT_EQ(bytesOf(chain), hex("00 01 04 05 00 01 02 06 07 08 09"));
    EXPECT_EQ(blocks.made(), 2);
}

}}
