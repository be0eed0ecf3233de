#include "Essence/Wave/WaveWriter.h"

#include "Essence/Wave/WaveHeader.h"
#include "KLV/Value.h"
#include "Platform/LittleEndian.h"
#include "Templates/Containers.h"

#include <algorithm>

namespace Vantry { namespace Essence { namespace Wave {

namespace {

UInt64 const COPY_SIZE = 4096;

// "WAVE", a plain format chunk and the header of the data chunk.
unsigned int const PLAIN_HEADER_SIZE = 36;

}

WaveWriter::WaveWriter(DataIO::DataSink & sink, unsigned short bitsPerSample, unsigned int samplesPerSecond,
                       unsigned short channels, unsigned short formatTag) :
    sink_(sink),
    bitsPerSample_(bitsPerSample),
    samplesPerSecond_(samplesPerSecond),
    channels_(channels),
    formatTag_(formatTag),
    headerIsWritten_(false),
    dataWritten_(0)
{
}

WaveWriter::~WaveWriter() = default;

unsigned int WaveWriter::headerSize() const
{
    return PLAIN_HEADER_SIZE;
}

void WaveWriter::writeAdditionalChunks() {}

void WaveWriter::writeHeader(unsigned int dataLength)
{
    if (headerIsWritten_)
        return;

    Converters::WaveHeaderStructure format;
    format.bitsPerSample = bitsPerSample_;
    format.channels = channels_;
    format.blockAlign = static_cast<unsigned short>(frameSize());
    format.samplesPerSecond = samplesPerSecond_;
    format.averageBytesPerSecond =
        static_cast<unsigned int>(UInt64(bitsPerSample_) * channels_ * samplesPerSecond_ / 8);
    format.formatTag = formatTag_;

    bool const isKnown = dataLength != 0 && dataLength < UNKNOWN_SIZE - headerSize();
    writeRiffHeader(sink_, isKnown ? dataLength + headerSize() : UNKNOWN_SIZE);
    writeFormatChunk(sink_, format);
    writeAdditionalChunks();
    writeChunkHeader("data", isKnown ? dataLength : UNKNOWN_SIZE);
    headerIsWritten_ = true;
}

void WaveWriter::writeChunkHeader(char const * const id, unsigned int length)
{
    Wave::writeChunkHeader(sink_, id, length);
}

unsigned int WaveWriter::frameSize() const
{
    return bytesPerSample(bitsPerSample_) * channels_;
}

void WaveWriter::writeData(unsigned char const * bytes, UInt64 size)
{
    sink_.write(bytes, size);
    dataWritten_ += size;
}

void WaveWriter::write(DataIO::Slice const & slice)
{
    writeHeader(0);
    writeData(slice.begin(), slice.size());
}

void WaveWriter::writeSample(unsigned int value)
{
    writeHeader(0);
    Platform::LittleEndian<unsigned int> const sample(value);
    writeData(reinterpret_cast<unsigned char const *>(&sample), bytesPerSample(bitsPerSample_));
}

void WaveWriter::handleData(KLV::Value & value)
{
    writeHeader(0);
    UInt64 const frame = std::max(frameSize(), 1u);
    Templates::vector<unsigned char> bytes(std::max(COPY_SIZE / frame, UInt64(1)) * frame);
    while (UInt64 const size = value.read(bytes.data(), bytes.size()))
        writeData(bytes.data(), size);
}

void WaveWriter::updateHeader()
{
    headerIsWritten_ = false;
    writeHeader(static_cast<unsigned int>(std::min<UInt64>(dataWritten_, UNKNOWN_SIZE)));
}

}}}
