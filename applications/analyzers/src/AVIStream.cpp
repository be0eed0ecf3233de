#include "Analyzers/AVIStream.h"

#include "Exceptions/InvalidFormat.h"
#include "Platform/LittleEndian.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

namespace Vantry { namespace Analyzers {

using DataIO::Slice;
using Templates::auto_ptr;

namespace {

// "RIFF" and the size of what follows.
UInt64 const RIFF_HEADER_SIZE = 8;

[[noreturn]] void refuse(std::string const & what)
{
    throw Exceptions::InvalidFormat(what.c_str(), __FILE__, __LINE__);
}

// How long the file claims to be, or its first part where it has several; 0
// where it doesn't say.
UInt64 claimedSizeOf(DataIO::SliceReader & reader)
{
    auto_ptr<Slice> header = reader.read(RIFF_HEADER_SIZE);
    Platform::LittleEndian<UInt32> size;
    if (header->size() == RIFF_HEADER_SIZE)
        std::memcpy(static_cast<void *>(&size), header->end() - sizeof(size), sizeof(size));
    reader.unget(header);
    return RIFF_HEADER_SIZE + size;
}

}

AVIStream::AVIStream(Templates::SharedPtr<DataIO::SliceSource> file, unsigned int stream) :
    reader_(std::move(file)), claimedSize_(claimedSizeOf(reader_)), avi_(reader_), number_(stream), offset_(0)
{
    if (avi_.initialize() == nullptr)
        refuse("The AVI file has no headers up to byte " + std::to_string(reader_.absoluteOffset()));
    if (stream >= avi_.streamCount())
        refuse("The AVI file has no stream " + std::to_string(stream));
    info_ = avi_.info(stream);
    readAhead();
}

AVIStream::~AVIStream() = default;

auto_ptr<Slice> AVIStream::read(UInt64 howMuch)
{
    if (pending_.empty())
        return auto_ptr<Slice>(new Slice);

    auto_ptr<Slice> slice = pending_.erase(pending_.begin());
    if (slice->size() > howMuch)
        pending_.push_front(slice->splice(slice->begin() + howMuch));
    offset_ += slice->size();
    readAhead();
    return slice;
}

UInt64 AVIStream::skip(UInt64 howMuch)
{
    UInt64 skipped = 0;
    while (skipped < howMuch && !endOfStream())
        skipped += read(howMuch - skipped)->size();
    return skipped;
}

void AVIStream::readAhead()
{
    while (pending_.empty())
    {
        unsigned int id = 0;
        DataIO::Chain chunk;
        if (!avi_.read(id, chunk))
            return checkEnd(!chunk.empty());
        if (isOurs(id))
            pending_.push_back(chunk);
    }
}

// Streams are numbered as their headers come; the letters behind the number
// tell data from palettes and indexes.
bool AVIStream::isOurs(unsigned int chunkId) const
{
    using Essence::AVI::fourCC;
    static constexpr unsigned int KINDS[] = {fourCC("\0\0dc"), fourCC("\0\0db"), fourCC("\0\0wb"), fourCC("\0\0__")};
    unsigned int const digits = ('0' + number_ / 10) | ('0' + number_ % 10) << 8;
    return (chunkId & 0xFFFF) == digits &&
           std::find(std::begin(KINDS), std::end(KINDS), chunkId & 0xFFFF0000) != std::end(KINDS);
}

void AVIStream::checkEnd(bool isInChunk) const
{
    std::string const place = " at byte " + std::to_string(reader_.absoluteOffset());
    if (!reader_.endOfStream())
        refuse("The AVI file is damaged" + place);
    if (isInChunk || reader_.absoluteOffset() < claimedSize_)
        refuse("The AVI file is cut off" + place);
}

}}
