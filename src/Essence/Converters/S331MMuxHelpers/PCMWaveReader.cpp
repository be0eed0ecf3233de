#include "Essence/Converters/S331MMuxHelpers/PCMWaveReader.h"

#include "Essence/RecordIn.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Vantry { namespace Essence { namespace Converters { namespace S331MMuxHelpers {

namespace {

// A length is a claim. No format takes so many bytes; what comes behind them
// is skipped as the rest of the chunk.
UInt64 const LONGEST_FORMAT = 65536;

// A-law, whose chunk is laid out like that of PCM.
unsigned short const FORMAT_TAG_ALAW = 6;

char const * const NOT_PCM = "Wave file does not contain PCM essence";

}

PCMWaveReader::PCMWaveReader(Templates::SharedPtr<DataIO::SliceSource> source) :
    WaveReader(std::move(source)), validBitsPerSample_(0), formatIsKnown_(false)
{
}

PCMWaveReader::~PCMWaveReader() = default;

bool PCMWaveReader::preload()
{
    if (!WaveReader::preload())
        return false;

    while (!formatIsKnown_ && state() == STATE_BETWEEN_CHUNKS)
        nextChunk();
    return formatIsKnown_;
}

void PCMWaveReader::handleFormatChunk(UInt64 chunkLength)
{
    using Wave::FormatBaseChunk;
    VANTRY_CHECK(chunkLength >= sizeof (FormatBaseChunk), InvalidFormat,
                 "Wave file Format chunk is shorter than expected");

    Templates::auto_ptr<DataIO::Slice> chunk = reader().readAligned(std::min(chunkLength, LONGEST_FORMAT));
    unsigned short const formatTag = recordIn<FormatBaseChunk>(*chunk).wFormatTag;
    switch (formatTag)
    {
    case Wave::FORMAT_TAG_PCM:
    case FORMAT_TAG_ALAW:
        handleFormatPCMChunk(chunk);
        break;
    case Wave::FORMAT_TAG_EXTENSIBLE:
        handleFormatExtensibleChunk(chunk);
        break;
    default:
        handleUnknownFormatChunk(formatTag, chunk);
    }
}

void PCMWaveReader::handleFormatPCMChunk(Templates::auto_ptr<DataIO::Slice> formatChunk)
{
    using Wave::FormatPCMChunk;
    VANTRY_CHECK_TEXT(formatChunk->size() >= sizeof(FormatPCMChunk), "formatChunk -> size () >= sizeof (FormatPCMChunk)",
                      InvalidFormat, "Wave file Format PCM chunk is shorter than expected");

    decodePCMFormat(recordIn<FormatPCMChunk>(*formatChunk));
}

void PCMWaveReader::handleFormatExtensibleChunk(Templates::auto_ptr<DataIO::Slice> formatChunk)
{
    using Wave::FORMAT_EXTENSIBLE_PCM_LABEL;
    using Wave::FormatExtensibleChunk;
    VANTRY_CHECK_TEXT(formatChunk->size() >= sizeof(FormatExtensibleChunk),
                      "formatChunk -> size () >= sizeof (FormatExtensibleChunk)", InvalidFormat,
                      "Wave file Format Extensible chunk is shorter than expected");

    auto const format = recordIn<FormatExtensibleChunk>(*formatChunk);
    VANTRY_CHECK_TEXT(
        std::memcmp(format.subFormat, FORMAT_EXTENSIBLE_PCM_LABEL, sizeof(FORMAT_EXTENSIBLE_PCM_LABEL)) == 0,
        "::memcmp (format -> subFormat, FORMAT_EXTENSIBLE_PCM_LABEL, sizeof (FORMAT_EXTENSIBLE_PCM_LABEL)) == 0",
        InvalidFormat, NOT_PCM);

    decodePCMFormat(format);
    validBitsPerSample_ = format.validBitsPerSample;
}

void PCMWaveReader::handleUnknownFormatChunk(unsigned short, Templates::auto_ptr<DataIO::Slice>)
{
    VANTRY_FAIL(InvalidFormat, NOT_PCM);
}

void PCMWaveReader::decodePCMFormat(Wave::FormatPCMChunk const & format)
{
    format_ = format;
    validBitsPerSample_ = format.bitsPerSample;
    formatIsKnown_ = true;
}

}}}}
