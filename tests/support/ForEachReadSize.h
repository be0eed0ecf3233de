#pragma once

#include "support/BytesSource.h"

#include <gtest/gtest.h>

namespace Vantry { namespace Tests {

/// Runs `test` with the stream given whole, byte by byte, and in pieces that
/// cut through every structure.
template <class Test>
void forEachReadSize(Bytes const & stream, Test const & test)
{
    for (UInt64 mostPerRead : {UInt64(1) << 32, UInt64(1), UInt64(7)})
    {
        SCOPED_TRACE(testing::Message() << "at most " << mostPerRead << " bytes at a read");
        BytesSource source(stream, mostPerRead);
        test(source);
    }
}

}}
