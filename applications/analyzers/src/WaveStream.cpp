#include "WaveStream.h"

#include "Exceptions/InvalidFormat.h"
#include "Exceptions/NotEnoughData.h"
#include "Platform/LittleEndian.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace Vantry { namespace Analyzers {

namespace {

UInt64 const UNKNOWN_LENGTH = 0xFFFFFFFF;

// Where the count of samples since midnight stands in a broadcast extension
// (EBU Tech 3285), low byte first, behind texts of fixed sizes.
UInt64 const TIME_REFERENCE = 338;

[[noreturn]] void refuse(std::string const & what)
{
    throw Exceptions::InvalidFormat(what.c_str(), __FILE__, __LINE__);
}

}

bool WaveStream::preload()
{
    if (!PCMWaveReader::preload())
        return false;
    checkFormat();
    return true;
}

void WaveStream::handleFormatChunk(UInt64 length)
try
{
    PCMWaveReader::handleFormatChunk(length);
}
catch (Exceptions::NotEnoughData const &)
{
    reader().skip(reader().cachedSize()); // the rest that there is
    refuse("The wave stream ends at " + position() + " in its format");
}

void WaveStream::handleBroadcastExtensionChunk(UInt64 length)
{
    UInt64 const end = TIME_REFERENCE + sizeof(UInt64);
    Templates::auto_ptr<DataIO::Slice> const start = reader().read(std::min(length, end));
    if (start->size() < end)
        return;

    Platform::LittleEndian<UInt64> reference;
    std::memcpy(&reference, start->begin() + TIME_REFERENCE, sizeof(reference));
    timeReference_ = reference;
}

void WaveStream::decodePCMFormat(Essence::Wave::FormatPCMChunk const & format)
{
    if (format.wFormatTag != Essence::Wave::FORMAT_TAG_PCM && format.wFormatTag != Essence::Wave::FORMAT_TAG_EXTENSIBLE)
        refuse("The wave format that ends at " + position() + " isn't PCM");
    PCMWaveReader::decodePCMFormat(format);
}

void WaveStream::checkFormat()
{
    unsigned int const bits = bitsPerSample();
    unsigned int const channels = numberOfChannels();
    bool const isWhole = channels != 0 && numberBlockAlign() == channels * ((bits + 7) / 8);
    if (bits == 0 || bits > 32 || !isWhole || samplesPerSecond() == 0 ||
        samplesPerSecond() > static_cast<unsigned int>(std::numeric_limits<int>::max()))
        refuse("The wave format that ends at " + position() + " has " + std::to_string(channels) + " channels of " +
               std::to_string(bits) + " bits in blocks of " + std::to_string(numberBlockAlign()) + " bytes at " +
               std::to_string(samplesPerSecond()) + " Hz");
}

void WaveStream::goToSound()
{
    if (gotoNextDataChunk() != STATE_IN_DATA)
        refuse("The wave stream ends at " + position() + " without sound");
}

std::optional<UInt64> WaveStream::length() const
{
    return length_ == UNKNOWN_LENGTH ? std::nullopt : std::optional<UInt64>(length_ - length_ % numberBlockAlign());
}

bool WaveStream::isDone() const
{
    std::optional<UInt64> const length = this->length();
    return length ? absoluteOffset() >= *length : endOfStream();
}

unsigned int WaveStream::soundBits() const
{
    bool const isTold = validBitsPerSample() != 0 && validBitsPerSample() <= bitsPerSample();
    return isTold ? validBitsPerSample() : bitsPerSample();
}

UInt64 WaveStream::takeSamples(UInt64 samples, DataIO::Chain & data)
{
    UInt64 const block = numberBlockAlign();
    UInt64 wanted = samples * block;
    if (std::optional<UInt64> const length = this->length())
        wanted = std::min(wanted, *length - std::min(*length, absoluteOffset()));

    DataIO::Chain bytes;
    UInt64 const size = take(wanted, bytes);
    if (size < wanted && length())
        refuse("The wave stream ends at " + position() + ", " + std::to_string(*length() - absoluteOffset()) +
               " bytes short of its sound");

    DataIO::Chain cut;
    bytes.chopEnd(size % block, cut);
    data.push_back(bytes);
    return size / block;
}

// Appends up to so many bytes, fewer at the end.
UInt64 WaveStream::take(UInt64 size, DataIO::Chain & chain)
{
    UInt64 taken = 0;
    while (taken < size)
    {
        Templates::auto_ptr<DataIO::Slice> slice = read(size - taken);
        if (slice->size() == 0 && (state() != STATE_IN_DATA || endOfStream()))
            break;
        taken += slice->size();
        chain.push_back(slice);
    }
    return taken;
}

}}
