#include "Essence/Wave/WaveReader.h"

#include "Essence/RecordIn.h"
#include "Exceptions/NotEnoughData.h"
#include "Platform/LittleEndian.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Vantry { namespace Essence { namespace Wave {

namespace {

UInt64 const UNKNOWN_LENGTH = 0xFFFFFFFF;

struct RiffHeader
{
    char form[4];
    Platform::LittleEndian<unsigned int> size;
    char type[4];
};

// Sizes of a "ds64" chunk, ahead of its sample count and its table.
struct LongSizes
{
    Platform::LittleEndian<UInt64> riffSize;
    Platform::LittleEndian<UInt64> dataSize;
};

bool isText(char const * characters, char const * text)
{
    return std::memcmp(characters, text, 4) == 0;
}

}

struct WaveReader::ChunkHeader
{
    char id[4];
    Platform::LittleEndian<unsigned int> length;
};

WaveReader::WaveReader(Templates::SharedPtr<DataIO::SliceSource> source) :
    reader_(std::move(source)),
    state_(STATE_INITIAL),
    isLong_(false),
    riffSize_(0),
    longDataSize_(UNKNOWN_LENGTH),
    dataLength_(0),
    dataTaken_(0),
    bytesRead_(0)
{
}

WaveReader::~WaveReader() = default;

void WaveReader::handleFormatChunk(UInt64) {}

void WaveReader::handleBroadcastExtensionChunk(UInt64) {}

void WaveReader::handleDataChunkBegin(UInt64) {}

void WaveReader::handleUnknownChunk(Templates::basic_string<unsigned char> const &, UInt64) {}

bool WaveReader::preload()
{
    if (state_ == STATE_INITIAL)
        state_ = loadHeader() ? STATE_BETWEEN_CHUNKS : STATE_INVALID;
    return state_ != STATE_INVALID;
}

bool WaveReader::loadHeader()
try
{
    auto const header = recordIn<RiffHeader>(*reader_.readAligned(sizeof(RiffHeader)));
    isLong_ = isText(header.form, "RF64");
    riffSize_ = header.size;
    return (isLong_ || isText(header.form, "RIFF")) && isText(header.type, "WAVE");
}
catch (Exceptions::NotEnoughData const &)
{
    return false;
}

// No identifier begins with a zero byte, so zeros ahead of it are padding.
bool WaveReader::loadChunkHeader(ChunkHeader & header)
try
{
    for (;;)
    {
        Templates::auto_ptr<DataIO::Slice> slice = reader_.readAligned(sizeof(ChunkHeader));
        auto const zeros = std::find_if(slice->begin(), slice->end(), [](unsigned char byte) { return byte != 0; });
        if (zeros == slice->begin())
        {
            header = recordIn<ChunkHeader>(*slice);
            return true;
        }
        slice->cropBegin(static_cast<UInt64>(zeros - slice->begin()));
        reader_.unget(slice);
    }
}
catch (Exceptions::NotEnoughData const &)
{
    return false;
}

WaveReader::State WaveReader::nextChunk()
{
    WaveReader::preload();
    if (state_ == STATE_INVALID || state_ == STATE_END_OF_STREAM)
        return state_;

    if (state_ == STATE_IN_DATA)
        skipData();

    ChunkHeader header;
    if (reader_.endOfStream() || !loadChunkHeader(header))
    {
        // Less than a header may be left; who waits for the end is to see it.
        reader_.skip(reader_.cachedSize());
        return state_ = STATE_END_OF_STREAM;
    }

    state_ = STATE_BETWEEN_CHUNKS;
    if (isText(header.id, "data"))
    {
        bool const hasLongSize = isLong_ && header.length == UNKNOWN_LENGTH;
        dataLength_ = hasLongSize ? longDataSize_ : UInt64(header.length);
        dataTaken_ = 0;
        state_ = STATE_IN_DATA;
        handleDataChunkBegin(dataLength_);
    }
    else
        handleChunk(header);

    return state_;
}

void WaveReader::handleChunk(ChunkHeader const & header)
{
    UInt64 const length = header.length;
    UInt64 const begin = reader_.absoluteOffset();

    if (isText(header.id, "fmt "))
        handleFormatChunk(length);
    else if (isText(header.id, "bext"))
        handleBroadcastExtensionChunk(length);
    else if (isLong_ && isText(header.id, "ds64"))
        loadLongSizes(length);
    else
        handleUnknownChunk(
            Templates::basic_string<unsigned char>(reinterpret_cast<unsigned char const *>(header.id), 4), length);

    UInt64 const taken = reader_.absoluteOffset() - begin;
    if (taken < length)
        reader_.skip(length - taken);
}

void WaveReader::loadLongSizes(UInt64 length)
try
{
    if (length < sizeof(LongSizes))
        return;

    auto const sizes = recordIn<LongSizes>(*reader_.readAligned(sizeof(LongSizes)));
    riffSize_ = sizes.riffSize;
    longDataSize_ = sizes.dataSize;
}
catch (Exceptions::NotEnoughData const &)
{
    // The stream ends here, and the next chunk header will tell.
}

void WaveReader::skipData()
{
    reader_.skip(dataLeft());
    state_ = STATE_BETWEEN_CHUNKS;
}

UInt64 WaveReader::dataLeft() const noexcept
{
    return dataLength_ > dataTaken_ ? dataLength_ - dataTaken_ : 0;
}

// How much of a wish can be met in this chunk, if it is long enough.
UInt64 WaveReader::withinData(UInt64 size) const noexcept
{
    return dataLength_ != UNKNOWN_LENGTH ? std::min(size, dataLeft()) : size;
}

void WaveReader::took(UInt64 size) noexcept
{
    dataTaken_ += size;
    bytesRead_ += size;
}

WaveReader::State WaveReader::gotoNextDataChunk()
{
    if (!preload())
        return state_;

    do
        nextChunk();
    while (state_ == STATE_BETWEEN_CHUNKS);
    return state_;
}

// Goes to the present data chunk, or else the next, and tells whether it has
// more. Behind it all chunks are passed: the stream ends with its data.
bool WaveReader::hasData()
{
    preload();
    while (state_ == STATE_BETWEEN_CHUNKS)
        nextChunk();
    if (state_ != STATE_IN_DATA)
        return false;
    if (dataLength_ == UNKNOWN_LENGTH || dataLeft() != 0)
        return true;

    while (nextChunk() != STATE_END_OF_STREAM)
    {
    }
    return false;
}

Templates::auto_ptr<DataIO::Slice> WaveReader::read(UInt64 size)
{
    if (!hasData())
        return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice);

    Templates::auto_ptr<DataIO::Slice> slice = reader_.nextSlice(withinData(size));
    took(slice->size());
    return slice;
}

UInt64 WaveReader::skip(UInt64 size)
{
    if (!hasData())
        return 0;

    UInt64 const skipped = reader_.skip(withinData(size));
    took(skipped);
    return skipped;
}

UInt64 WaveReader::absoluteOffset() const
{
    return bytesRead_;
}

bool WaveReader::endOfStream() const
{
    return reader_.endOfStream();
}

}}}
