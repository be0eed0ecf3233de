#include "Essence/Wave/WaveHeader.h"

#include "Essence/Wave/FormatChunk.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"

#include <algorithm>
#include <iterator>

namespace Vantry { namespace Essence { namespace Wave {

unsigned char const FORMAT_EXTENSIBLE_PCM_LABEL[16] = {0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x10, 0x00,
                                                       0x80, 0x00, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71};

namespace {

unsigned short const WIDEST_PLAIN_SAMPLE = 16;

// What stands behind the size of the extension.
unsigned short const EXTENSION_SIZE = 22;

template <class Record>
void writeRecord(DataIO::DataSink & sink, Record const & record)
{
    sink.write(reinterpret_cast<unsigned char const *>(&record), sizeof(record));
}

void writeText(DataIO::DataSink & sink, char const * text)
{
    sink.write(reinterpret_cast<unsigned char const *>(text), 4);
}

// Bits that a sample takes up in the stream.
unsigned int storedBits(Converters::WaveHeaderStructure const & structure)
{
    return structure.channels != 0 ? structure.blockAlign * 8u / structure.channels : 0;
}

}

unsigned int bytesPerSample(unsigned short bitsPerSample)
{
    if (bitsPerSample > 32)
        VANTRY_FAIL(InvalidValue, "Number of bits per sample is not supported");

    return bitsPerSample <= 8 ? 1 : (bitsPerSample + 7u) / 8;
}

void writeRiffHeader(DataIO::DataSink & sink, unsigned int riffSize)
{
    writeText(sink, "RIFF");
    writeRecord(sink, Platform::LittleEndian<unsigned int>(riffSize));
    writeText(sink, "WAVE");
}

void writeChunkHeader(DataIO::DataSink & sink, char const * id, unsigned int length)
{
    if (sink.absoluteOffset() % 2 != 0)
        sink.write(reinterpret_cast<unsigned char const *>(""), 1);
    writeText(sink, id);
    writeRecord(sink, Platform::LittleEndian<unsigned int>(length));
}

void writeFormatChunk(DataIO::DataSink & sink, Converters::WaveHeaderStructure const & structure)
{
    bytesPerSample(structure.bitsPerSample);

    FormatExtensibleChunk format;
    format.wFormatTag = structure.formatTag;
    format.channels = structure.channels;
    format.samplesPerSecond = structure.samplesPerSecond;
    format.averageBytesPerSecond = structure.averageBytesPerSecond;
    format.blockAlign = structure.blockAlign;
    format.bitsPerSample = static_cast<unsigned short>(storedBits(structure));
    if (structure.bitsPerSample <= WIDEST_PLAIN_SAMPLE)
    {
        writeChunkHeader(sink, "fmt ", sizeof(FormatPCMChunk));
        writeRecord<FormatPCMChunk>(sink, format);
        return;
    }

    format.wFormatTag = FORMAT_TAG_EXTENSIBLE;
    format.extensionSize = EXTENSION_SIZE;
    format.validBitsPerSample = structure.bitsPerSample;
    std::copy(std::begin(FORMAT_EXTENSIBLE_PCM_LABEL), std::end(FORMAT_EXTENSIBLE_PCM_LABEL), format.subFormat);
    writeChunkHeader(sink, "fmt ", sizeof(format));
    writeRecord(sink, format);
}

}}}
