#include "Essence/Wave/WaveWriter.h"

#include "Essence/Converters/PCMToWave.h"
#include "KLV/Value.h"
#include "support/BytesSink.h"
#include "support/BytesSource.h"
#include "support/Failure.h"
#include "support/Slices.h"
#include "support/WaveFile.h"

namespace Vantry { namespace Tests {

using Essence::Converters::PCMToWave;
using Essence::Converters::WaveHeaderStructure;
using Essence::Wave::WaveWriter;

namespace {

// Two channels of 20 bits in 24, at 48000 Hz.
Bytes const WIDE_FORMAT = hex("FEFF 0200 80BB0000 80A90300 0600 1800 1600 1400 00000000"
                              "0100 0000 0000 1000 8000 00AA 0038 9B71");

Bytes wave(Bytes const & format, UInt64 riffSize, UInt64 dataSize)
{
    return hex("52494646") + littleEndian(riffSize, 4) + hex("57415645") + waveChunk("fmt ", format) +
           waveChunk("data", {}, dataSize);
}

}

TEST(WaveWriter, WritesTheHeader)
{
    BytesSink sink;
    WaveWriter(sink, 16, 48000, 2, 1).writeHeader(100);
    EXPECT_EQ(sink.bytes(), wave(PCM_FORMAT, 136, 100));

    BytesSink wide;
    WaveWriter(wide, 20, 48000, 2, 1).writeHeader(0);
    EXPECT_EQ(wide.bytes(), wave(WIDE_FORMAT, 0xFFFFFFFF, 0xFFFFFFFF));

    BytesSink full;
    WaveWriter(full, 16, 48000, 2, 1).writeHeader(0xFFFFFFF0);
    EXPECT_EQ(full.bytes(), wave(PCM_FORMAT, 0xFFFFFFFF, 0xFFFFFFFF)) << "a size that has no room is unknown";

    EXPECT_FAILURE(InvalidValue, "Number of bits per sample is not supported",
                   WaveWriter(sink, 33, 48000, 2, 1).writeHeader(0));
}

TEST(WaveWriter, CountsWhatItWrites)
{
    Bytes const value = counting(9000);
    BytesSource source(value);
    KLV::Value packet(source, 9000);
    CountingBlocks blocks;
    BytesSink sink;

    WaveWriter writer(sink, 24, 48000, 1, 1);
    writer.handleData(packet);
    EXPECT_EQ(sink.largestWrite(), 4095u) << "whole frames";
    writer.writeSample(0x01020304);
    writer.write(*blocks.slice(hex("AABBCC")));
    writer.updateHeader();

    int const headerSize = 68;
    Bytes const samples(sink.bytes().begin() + headerSize, sink.bytes().end() - headerSize);
    EXPECT_EQ(samples, value + hex("040302AABBCC"));
    Bytes const header(sink.bytes().end() - headerSize, sink.bytes().end());
    EXPECT_EQ(Bytes(header.begin() + 4, header.begin() + 8), littleEndian(9006 + 36, 4));
    EXPECT_EQ(Bytes(header.end() - 4, header.end()), littleEndian(9006, 4));
}

TEST(PCMToWave, PutsAHeaderAhead)
{
    WaveHeaderStructure structure;
    structure.bitsPerSample = 20;
    structure.channels = 2;
    structure.blockAlign = 6;
    structure.samplesPerSecond = 48000;
    structure.averageBytesPerSecond = 240000;
    structure.formatTag = 1;

    CountingBlocks blocks;
    auto const source = [&]
    {
        return Templates::SharedPtr<DataIO::SliceSource>(new PieceSource(blocks, {counting(20)}));
    };

    Bytes const header = wave(WIDE_FORMAT, 0xFFFFFFFF, 0xFFFFFFFF);
    PCMToWave reading(source(), structure);
    EXPECT_EQ(bytesOf(*reading.read(1)), header);
    EXPECT_EQ(bytesOf(*reading.read(5)), counting(5));
    EXPECT_EQ(reading.absoluteOffset(), header.size() + 5);

    PCMToWave skipping(source(), structure);
    EXPECT_EQ(skipping.skip(10), 10u);
    EXPECT_EQ(bytesOf(*skipping.read(100)), Bytes(header.begin() + 10, header.end()));
    PCMToWave farther(source(), structure);
    EXPECT_EQ(farther.skip(header.size() + 15), header.size() + 15);
    EXPECT_EQ(bytesOf(*farther.read(100)), counting(5, 15));
    EXPECT_TRUE(farther.endOfStream());
}

}}
