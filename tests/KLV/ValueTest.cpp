#include "KLV/Value.h"

#include "KLV/Packet.h"
#include "support/Failure.h"
#include "support/ForEachReadSize.h"

using namespace Vantry;
using namespace Vantry::Tests;

namespace {

UInt64 const MAXIMUM = std::numeric_limits<UInt64>::max();

class FailingSource : public BytesSource
{
public:
    using BytesSource::BytesSource;

    UInt64 skip(UInt64) override { throw Exceptions::IOError("broken", __FILE__, __LINE__); }
};

}

TEST(Value, IsAWindowFromWhereTheSourceStood)
{
    forEachReadSize(counting(20),
                    [](BytesSource & source)
                    {
                        source.skip(4);
                        KLV::Value value(source, 6);
                        EXPECT_EQ(value.remaining(), 6u);

                        Bytes bytes(4);
                        value.readValue(bytes.data(), 4);
                        EXPECT_EQ(bytes, counting(4, 4));
                        EXPECT_EQ(value.skip(1), 1u);
                        EXPECT_EQ(value.read(bytes.data(), 4), 1u) << "none from behind the window";
                        EXPECT_EQ(bytes[0], 9);
                        EXPECT_TRUE(value.endOfStream());

                        source.seek(12);
                        EXPECT_EQ(value.remaining(), 0u) << "the source was moved behind the window";
                        value.discard();
                        EXPECT_EQ(source.absoluteOffset(), 12u);
                        source.seek(5);
                        EXPECT_EQ(value.remaining(), 5u) << "and back into it";
                    });
}

TEST(Value, LeavesTheSourceBehindItself)
{
    BytesSource source(counting(20));
    source.skip(2);
    {
        KLV::Value outer(source, 8);
        {
            KLV::Value const inner(outer, 3);
        }
        EXPECT_EQ(source.absoluteOffset(), 5u);
        {
            KLV::Value const tooLong(outer, MAXIMUM);
        }
        EXPECT_EQ(source.absoluteOffset(), 10u) << "an inner value ends with the outer one";
    }
    EXPECT_EQ(source.absoluteOffset(), 10u);
    EXPECT_EQ(source.bytesRead(), 0u);

    FailingSource failing(counting(20));
    KLV::Value value(failing, 3);
    EXPECT_FAILURE(IOError, "broken", value.discard());
}

TEST(Value, HoldsNoClaimedLengthForTrue)
{
    BytesSource source(counting(10));
    source.skip(2);
    KLV::Value value(source, MAXIMUM);
    EXPECT_EQ(value.totalLength(), MAXIMUM);
    EXPECT_EQ(value.remaining(), MAXIMUM - 2) << "up to the last position there can be";

    Bytes bytes(16);
    EXPECT_EQ(value.read(bytes.data(), 16), 8u);
    EXPECT_EQ(value.skip(MAXIMUM), 0u);
}

TEST(Value, CarriesWhatAShortReadGot)
{
    forEachReadSize(counting(10),
                    [](BytesSource & source)
                    {
                        KLV::Value value(source, 3);
                        Bytes bytes(5);
                        try
                        {
                            value.readValue(bytes.data(), 5);
                            ADD_FAILURE() << "nothing was thrown";
                        }
                        catch (Exceptions::InvalidLength const & failure)
                        {
                            EXPECT_EQ(Bytes(failure.readData(), failure.readData() + failure.readDataLength()),
                                      counting(3));
                        }
                        EXPECT_FAILURE(InvalidLength, "Invalid data size in Value", value.readValue(bytes.data(), 1));
                    });
}

TEST(Packet, AddsItsPartsUp)
{
    BytesSource source(counting(30));
    KLV::Key const key(counting(16).data());

    EXPECT_EQ(KLV::Packet(key, 4, 10, source, 3).klvLength(), 30u);
    EXPECT_EQ(KLV::Packet(key, 9, MAXIMUM - 25, source, 3).klvLength(), MAXIMUM);
    EXPECT_EQ(KLV::Packet(key, 9, MAXIMUM - 24, source, 3).klvLength(), MAXIMUM) << "never wrapped";
}
