#include "Essence/AES3/ChannelStatus.h"

#include "Essence/AES3/AES3Info.h"
#include "Essence/AES3/ChannelStatusDumper.h"
#include "Essence/AES3/ChannelStatusLoader.h"
#include "support/Bytes.h"
#include "support/Failure.h"

#include <algorithm>
#include <random>

namespace Vantry { namespace Tests {

using namespace Essence::AES3;
using Rate = Templates::Rational<int>;

namespace {

Bytes blockOf(ChannelStatus const & status)
{
    Bytes block(24);
    status.serialize(block.data(), block.size());
    return block;
}

}

TEST(ChannelStatus, HasEachFieldInItsBits)
{
    struct Case
    {
        void (*set)(ChannelStatus &);
        bool (*isSet)(ChannelStatus const &);
        std::size_t byte;
        unsigned char value;
    };

    Case const cases[] = {
        {[](auto & s) { s.professionalUse(true); }, [](auto & s) { return s.professionalUse(); }, 0, 0x01},
        {[](auto & s) { s.linearPCM(false); }, [](auto & s) { return !s.linearPCM(); }, 0, 0x02},
        {[](auto & s) { s.audioSignalEmphasis(EMPHASIS_CCITT_J17); },
         [](auto & s) { return s.audioSignalEmphasis() == EMPHASIS_CCITT_J17; }, 0, 0x1C},
        {[](auto & s) { s.lockIndication(true); }, [](auto & s) { return s.lockIndication(); }, 0, 0x20},
        {[](auto & s) { s.channelMode(CHANNEL_MODE_TWO_CHANNELS); },
         [](auto & s) { return s.channelMode() == CHANNEL_MODE_TWO_CHANNELS; }, 1, 0x08},
        {[](auto & s) { s.userBitsManagement(USER_BITS_USER_DEFINED); },
         [](auto & s) { return s.userBitsManagement() == USER_BITS_USER_DEFINED; }, 1, 0xC0},
        {[](auto & s) { s.useOfAuxiliarySampleBits(AUXILIARY_BITS_USER_DEFINED); },
         [](auto & s) { return s.useOfAuxiliarySampleBits() == AUXILIARY_BITS_USER_DEFINED; }, 2, 0x06},
        {[](auto & s) { s.sourceWordLength(16); }, [](auto & s) { return s.isSourceWordLenghtLoaded(); }, 2, 0x08},
        {[](auto & s) { s.crc(0xA5); }, [](auto & s) { return s.crc() == 0xA5; }, 23, 0xA5},
        {[](auto & s) { s.bit(37, true); }, [](auto & s) { return s.bit(37); }, 4, 0x20},
    };

    for (Case const & c : cases)
    {
        SCOPED_TRACE(&c - cases);
        ChannelStatus status;
        EXPECT_FALSE(c.isSet(status));
        c.set(status);
        EXPECT_TRUE(c.isSet(status));

        Bytes wanted = repeated(24, 0);
        wanted[c.byte] = c.value;
        EXPECT_EQ(blockOf(status), wanted);
    }

    unsigned char small[23];
    EXPECT_FAILURE(InvalidLength,
                   "bufferSize >= sizeof (ChannelStatusDataFormat): "
                   "Buffer is not large enough to store the ChannelStatus data.",
                   ChannelStatus().serialize(small, sizeof small));
}

TEST(ChannelStatus, CodesTheWordLengthByTheUseOfAuxiliaryBits)
{
    unsigned char const codes[][2] = {{15, 0}, {16, 1}, {17, 6}, {18, 2}, {19, 4}, {20, 5}, {21, 0}};
    for (auto const use : {AUXILIARY_BITS_NOT_DEFINED, AUXILIARY_BITS_COORDINATION, AUXILIARY_BITS_AUDIO})
        for (auto const & [length, code] : codes)
        {
            ChannelStatus status;
            unsigned char const extra = use == AUXILIARY_BITS_AUDIO ? 4 : 0;
            status.useOfAuxiliarySampleBits(use);
            status.sourceWordLength(length + extra);
            EXPECT_EQ(status.data().bytes[2], code << 3 | use);
            EXPECT_EQ(status.sourceWordLength(), (code != 0 ? length : 20) + extra);
        }

    ChannelStatus status;
    status.sourceWordLength(20);
    status.useOfAuxiliarySampleBits(AUXILIARY_BITS_AUDIO);
    EXPECT_EQ(status.data().bytes[2], 0x0C) << "20 bits have another code then";
    EXPECT_EQ(status.sourceWordLength(), 20);

    status.useOfAuxiliarySampleBits(AUXILIARY_BITS_USER_DEFINED);
    EXPECT_EQ(status.sourceWordLength(), 0);
    status.sourceWordLength(24);
    EXPECT_EQ(status.data().bytes[2], 0x0E) << "left as it was";
}

TEST(ChannelStatus, CodesTheSamplingFrequency)
{
    std::tuple<Rate, unsigned char, unsigned char, Rate> const cases[] = {
        {48000, 0x80, 0x00, 48000},
        {44100, 0x40, 0x00, 44100},
        {32000, 0xC0, 0x00, 32000},
        {24000, 0x00, 0x08, 48000},
        {96000, 0x00, 0x10, 48000},
        {192000, 0x00, 0x18, 48000},
        {22050, 0x00, 0x48, 48000},
        {88200, 0x00, 0x50, 48000},
        {176400, 0x00, 0x58, 48000},
        {Rate(48000000, 1001), 0x80, 0x80, Rate(48000000, 1001)},
        {Rate(44100000, 1001), 0x40, 0x80, Rate(44100000, 1001)},
        {Rate(96000000, 1001), 0x00, 0x90, Rate(48000000, 1001)},
    };

    ChannelStatus status;
    for (auto const & [rate, byte0, byte4, read] : cases)
    {
        status.samplingFrequency(rate);
        EXPECT_EQ(status.data().bytes[0], byte0);
        EXPECT_EQ(status.data().bytes[4], byte4);
        EXPECT_TRUE(status.samplingFrequency() == read);
    }
    for (Rate const & rate : {Rate(48000, 1001), Rate(8000), Rate(48001, 1000)})
        EXPECT_FAILURE(InvalidValue, "Invalid source word length", status.samplingFrequency(rate));
    EXPECT_EQ(status.data().bytes[4], 0x90) << "left as it was";
}

TEST(ChannelStatus, GoesThroughBits)
{
    std::mt19937 random(1);
    ChannelStatus sent, received;
    for (unsigned int i = 0; i < ChannelStatusDataFormat::BITS; ++i)
        sent.bit(i, random() % 2 != 0);

    ChannelStatusDumper dumper(sent);
    ChannelStatusLoader loader(received);
    loader.push(false, true);
    bool framing = false, value = false;
    for (unsigned int i = 0; i < 2 * 192 + 1; ++i)
    {
        EXPECT_EQ(loader.isComplete(), i >= 192);
        dumper.pop(framing, value);
        EXPECT_EQ(framing, i % 192 == 0);
        loader.push(framing, i < 192 ? value : !value);
    }
    EXPECT_TRUE(received.data() == sent.data()) << "what comes ahead and behind doesn't count";

    dumper.reset();
    dumper.pop(framing, value);
    EXPECT_TRUE(framing);
    loader.reset();
    EXPECT_FALSE(loader.isComplete());
    loader.push(true, value);
    EXPECT_FAILURE(InvalidFormat, "!(recording_ && !complete_ && framing): Framing bit set during a frame.",
                   loader.push(true, value));
}

TEST(AES3Info, IsOrderedByItsFields)
{
    AES3Info rising[4];
    rising[1].dataType = 1;
    rising[2].channelStatus.bytes[23] = 1;
    rising[3].bitsPerSample = 16;
    EXPECT_TRUE(std::is_sorted(std::begin(rising), std::end(rising)));
    EXPECT_EQ(std::adjacent_find(std::begin(rising), std::end(rising)), std::end(rising));
}

}}
