#include "DataIO/Memory/MemoryDataSink.h"
#include "DataIO/Memory/MemoryDataSource.h"
#include "support/Bytes.h"
#include "support/Failure.h"

#include <limits>

using namespace Vantry;
using namespace Vantry::Tests;
using DataIO::Memory::MemoryDataSink;
using DataIO::Memory::MemoryDataSource;

namespace {

UInt64 const MAXIMUM = std::numeric_limits<UInt64>::max();
UInt64 const TOO_MUCH = UInt64(1) << 32;

}

TEST(MemoryDataSink, CollectsBytes)
{
    MemoryDataSink sink(100);
    Bytes const bytes = counting(200);
    sink.write(bytes.data(), 150);
    sink.write(bytes.data() + 150, 50);
    EXPECT_EQ(Bytes(sink.rawBuffer(), sink.rawBuffer() + sink.serializedSize()), bytes);
}

TEST(MemoryDataSource, ReadsACopy)
{
    Bytes bytes = counting(10);
    MemoryDataSource source(bytes.data(), bytes.size());
    bytes.assign(10, 0xFF);

    EXPECT_EQ(source.read(bytes.data(), 4), 4u);
    EXPECT_EQ(bytes.first(5), hex("00 01 02 03 FF"));
    EXPECT_EQ(source.skip(1), 1u);
    EXPECT_EQ(source.read(bytes.data(), MAXIMUM), 5u);
    EXPECT_EQ(bytes.first(6), hex("05 06 07 08 09 FF"));
    EXPECT_TRUE(source.endOfStream());

    EXPECT_EQ(source.seek(4), 4u);
    EXPECT_EQ(source.skip(MAXIMUM), 6u);
    EXPECT_EQ(source.seek(3), 3u);
    EXPECT_FALSE(source.endOfStream());
    source.discard();
    EXPECT_EQ(source.seek(MAXIMUM), 10u);
}

TEST(MemoryData, RefusesWhatItsCountsCannotHold)
{
    unsigned char const byte = 1;
    MemoryDataSink sink;
    sink.write(&byte, 1);
    EXPECT_FAILURE(IOError, "Type size exceeded", sink.write(&byte, TOO_MUCH));
    EXPECT_FAILURE(IOError, "Type size exceeded", MemoryDataSink(TOO_MUCH));
    EXPECT_FAILURE(IOError, "Type size exceeded", MemoryDataSource(&byte, TOO_MUCH));
}
