#include "Essence/AVI/AVIReader.h"

#include "DataIO/Chain.h"
#include "DataIO/SliceReader.h"
#include "Essence/RecordIn.h"
#include "Exceptions/Check.h"
#include "Exceptions/IndexOutOfBounds.h"

#include <algorithm>
#include <bitset>
#include <limits>
#include <optional>

namespace Vantry { namespace Essence { namespace AVI {

namespace {

unsigned int const RIFF = fourCC("RIFF");
unsigned int const LIST = fourCC("LIST");
unsigned int const HEADERS = fourCC("hdrl");
unsigned int const STREAM = fourCC("strl");
unsigned int const MOVIE = fourCC("movi");
unsigned int const JUNK = fourCC("JUNK");

// Sizes are claims. No format takes so many bytes.
UInt64 const LONGEST_FORMAT = 1 << 20;

// Numbers of two digits.
unsigned int const MOST_STREAMS = 100;

// As much of an index as is looked at in one go.
UInt64 const INDEX_STRIDE = 65536;

struct ChunkHeader
{
    Platform::LittleEndian<unsigned int> id;
    Platform::LittleEndian<unsigned int> size;
};

// What an "indx" chunk begins with.
struct StreamIndex
{
    Platform::LittleEndian<unsigned short> longsPerEntry;
    unsigned char subType;
    unsigned char type;
    Platform::LittleEndian<unsigned int> entriesInUse;
    Platform::LittleEndian<unsigned int> chunkId;
};

// An entry of the "idx1" chunk.
struct IndexEntry
{
    Platform::LittleEndian<unsigned int> chunkId;
    Platform::LittleEndian<unsigned int> flags;
    Platform::LittleEndian<unsigned int> offset;
    Platform::LittleEndian<unsigned int> size;
};

static_assert(sizeof(ChunkHeader) == 8 && sizeof(StreamIndex) == 12 && sizeof(IndexEntry) == 16,
              "records are laid out as they are stored");

struct OpenList
{
    unsigned int type;
    UInt64 end;
};

struct Stream
{
    StreamHeader header;
    Templates::vector<unsigned char> formatBlock;
    std::optional<unsigned int> indexedChunkId;
};

unsigned short digitsOf(unsigned int number) noexcept
{
    return static_cast<unsigned short>(('0' + number / 10) | ('0' + number % 10) << 8);
}

std::optional<unsigned int> numberIn(unsigned short digits) noexcept
{
    unsigned int const tens = (digits & 0xFFu) - '0';
    unsigned int const units = (digits >> 8) - '0';
    return tens < 10 && units < 10 ? std::optional<unsigned int>(10 * tens + units) : std::nullopt;
}

unsigned short halfOf(unsigned int chunkId, bool last) noexcept
{
    return static_cast<unsigned short>(last ? chunkId >> 16 : chunkId);
}

unsigned int formatOf(STREAMInfo const & info) noexcept
{
    Templates::vector<unsigned char> const & block = info.formatBlock;
    if (info.type == fourCC("iavs"))
        return info.handler;
    if (info.type == fourCC("auds") && block.size() >= 2)
        return block[0] | block[1] << 8u;
    if (info.type == fourCC("vids") && block.size() >= 20)
        return block[16] | block[17] << 8u | block[18] << 16u | static_cast<unsigned int>(block[19]) << 24u;
    return 0;
}

}

class AVIReader::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit Impl(DataIO::SliceReader & from) : rotateStreamNumberMask(false), reader(from) {}

    // Whether the data of the streams comes next.
    bool loadHeaders()
    {
        ChunkHeader chunk;
        while (nextChunk(chunk))
        {
            if (!isList(chunk))
            {
                if (!handle(chunk))
                    return false;
            }
            else if (!enter(chunk))
                return false;
            else if (isIn(MOVIE))
                return mainHeader.has_value();
        }
        return false;
    }

    bool readChunk(unsigned int & id, DataIO::Chain & chain)
    {
        ChunkHeader chunk;
        while (nextChunk(chunk))
        {
            if (isList(chunk))
            {
                if (!enter(chunk))
                    return false;
            }
            else if (isInMovie() && chunk.id != JUNK)
            {
                id = chunk.id;
                return take(chunk, chain);
            }
            else if (!handle(chunk))
                return false;
        }
        return false;
    }

    unsigned short streamNumber(unsigned int n) const noexcept
    {
        Stream const & stream = streams[n];
        if (stream.indexedChunkId)
            return halfOf(*stream.indexedChunkId, rotateStreamNumberMask);
        if (n < MOST_STREAMS && indexedNumbers[rotateStreamNumberMask ? 1 : 0][n])
            return digitsOf(n);
        return digitsOf(stream.header.type == fourCC("auds") ? 1 : 0);
    }

    std::optional<MainHeader> mainHeader;
    Templates::vector<Stream> streams;
    bool rotateStreamNumberMask;

private:
    static bool isList(ChunkHeader const & chunk) noexcept { return chunk.id == RIFF || chunk.id == LIST; }

    bool isIn(unsigned int list) const noexcept { return !lists.empty() && lists.back().type == list; }

    // Chunks may be grouped further in there.
    bool isInMovie() const noexcept { return isIn(MOVIE) || isIn(fourCC("rec ")); }

    bool nextChunk(ChunkHeader & chunk)
    {
        while (!lists.empty() && lists.back().end <= reader.absoluteOffset())
            lists.pop_back();
        return readRecord(chunk);
    }

    template <class Record>
    bool readRecord(Record & record)
    {
        Templates::auto_ptr<DataIO::Slice> const slice = reader.read(sizeof(Record));
        if (slice->size() < sizeof(Record))
            return false;
        record = recordIn<Record>(*slice);
        return true;
    }

    bool enter(ChunkHeader const & chunk)
    {
        UInt64 const end = endOf(chunk);
        Platform::LittleEndian<unsigned int> type;
        if ((chunk.id == RIFF) != lists.empty() || !readRecord(type))
            return false;
        if (chunk.id == RIFF && type != fourCC("AVI ") && type != fourCC("AVIX"))
            return false;
        if (type == fourCC("INFO"))
            return skipTo(end);

        // A writer that couldn't go back has left the size open.
        bool const isOpen = chunk.size == 0 && (chunk.id == RIFF || type == MOVIE);
        lists.push_back({type, isOpen ? std::numeric_limits<UInt64>::max() : end});
        return true;
    }

    // Reads a chunk's value, as far as it matters, and goes behind it.
    bool handle(ChunkHeader const & chunk)
    {
        UInt64 const end = endOf(chunk);
        return !lists.empty() && readValue(chunk) && skipTo(end);
    }

    // Where a chunk ends of which nothing but the header was read.
    UInt64 endOf(ChunkHeader const & chunk) const
    {
        return reader.absoluteOffset() + UInt64(chunk.size) + chunk.size % 2;
    }

    bool skipTo(UInt64 position)
    {
        UInt64 const here = reader.absoluteOffset();
        if (here < position)
            reader.skip(position - here);
        return true;
    }

    bool readValue(ChunkHeader const & chunk)
    {
        switch (chunk.id)
        {
        case fourCC("avih"):
            return isIn(HEADERS) && chunk.size >= sizeof(MainHeader) && readRecord(mainHeader.emplace());
        case fourCC("strh"):
            streams.emplace_back();
            return isIn(STREAM) && chunk.size >= sizeof(StreamHeader) && readRecord(streams.back().header);
        case fourCC("strf"):
            return isIn(STREAM) && !streams.empty() && readFormat(chunk.size, streams.back());
        case fourCC("indx"):
            return isIn(STREAM) && !streams.empty() && readStreamIndex(chunk.size, streams.back());
        case fourCC("idx1"):
            return readIndex(chunk.size);
        default:
            return true;
        }
    }

    bool readFormat(UInt64 size, Stream & stream)
    {
        size = std::min(size, LONGEST_FORMAT);
        Templates::auto_ptr<DataIO::Slice> const block = reader.read(size);
        stream.formatBlock.assign(block->begin(), block->end());
        return block->size() == size;
    }

    bool readStreamIndex(UInt64 size, Stream & stream)
    {
        StreamIndex index;
        if (size < sizeof(index) || !readRecord(index))
            return false;
        stream.indexedChunkId = index.chunkId;
        return true;
    }

    // Notes the stream numbers that there are.
    bool readIndex(UInt64 size)
    {
        for (UInt64 left = size - size % sizeof(IndexEntry); left != 0;)
        {
            UInt64 const stride = std::min(left, INDEX_STRIDE);
            Templates::auto_ptr<DataIO::Slice> const entries = reader.read(stride);
            if (entries->size() < stride)
                return false;
            left -= stride;
            for (; entries->size() != 0; entries->cropBegin(sizeof(IndexEntry)))
                noteNumbers(recordIn<IndexEntry>(*entries).chunkId);
        }
        return true;
    }

    void noteNumbers(unsigned int chunkId) noexcept
    {
        for (bool const last : {false, true})
            if (std::optional<unsigned int> const number = numberIn(halfOf(chunkId, last)))
                indexedNumbers[last ? 1 : 0].set(*number);
    }

    bool take(ChunkHeader const & chunk, DataIO::Chain & chain)
    {
        UInt64 const end = endOf(chunk);
        reader.read(chunk.size, chain);
        return reader.absoluteOffset() + chunk.size % 2 == end && skipTo(end);
    }

    DataIO::SliceReader & reader;
    Templates::vector<OpenList> lists;

    // Those in the first and those in the last two characters.
    std::bitset<MOST_STREAMS> indexedNumbers[2];
};

AVIReader::AVIReader(DataIO::SliceReader & reader) : impl_(new Impl(reader)) {}

AVIReader::~AVIReader()
{
    delete impl_;
}

MainHeader const * AVIReader::initialize()
{
    return impl_->loadHeaders() ? &*impl_->mainHeader : nullptr;
}

unsigned int AVIReader::streamCount() const noexcept
{
    return static_cast<unsigned int>(impl_->streams.size());
}

STREAMInfo AVIReader::info(unsigned int n) const
{
    if (n >= impl_->streams.size())
        VANTRY_FAIL(IndexOutOfBounds, "Invalid AVI stream.");

    Stream const & stream = impl_->streams[n];
    STREAMInfo info;
    info.type = stream.header.type;
    info.handler = stream.header.handler;
    info.streamNumber = impl_->streamNumber(n);
    info.header = stream.header;
    info.formatBlock = stream.formatBlock;
    info.format = formatOf(info);
    return info;
}

bool AVIReader::read(unsigned int & id, DataIO::Chain & chain)
{
    return impl_->readChunk(id, chain);
}

void AVIReader::rotateStreamNumberMask(bool rotate) noexcept
{
    impl_->rotateStreamNumberMask = rotate;
}

bool AVIReader::rotateStreamNumberMask() const noexcept
{
    return impl_->rotateStreamNumberMask;
}

}}}
