#include "EightChannelOutput.h"

#include "DataIO/Memory/MemoryDataSource.h"
#include "Essence/AES3/S331M.h"
#include "Essence/Converters/S331MDemux.h"
#include "KLV/Value.h"

#include <algorithm>
#include <cstring>
#include <fmt/format.h>

namespace Vantry { namespace Application {

namespace S331M = Essence::AES3::S331M;

namespace {

std::size_t const HEADER_SIZE = sizeof(S331M::ElementHeader);
std::size_t const LARGEST_ELEMENT = HEADER_SIZE + 0xFFFF * S331M::SAMPLE_SIZE;

S331M::ElementHeader headerOf(std::vector<unsigned char> const & element)
{
    S331M::ElementHeader header;
    std::memcpy(static_cast<void *>(&header), element.data(), HEADER_SIZE);
    return header;
}

// Holds the samples of any element, and of several usual ones.
std::size_t const PENDING_SIZE = 1 << 21;
static_assert(PENDING_SIZE > 0xFFFF * S331M::CHANNELS * S331M::DECODED_SIZE);

}

/// Keeps the samples of an element.
class EightChannelOutput::Demux : public Essence::Converters::S331MDemux
{
public:
    explicit Demux(std::vector<unsigned char> & samples) : S331MDemux(S331M::CHANNELS), samples_(samples)
    {
        ignoreValidChannelFlag(true);
    }

    void streamInfo(unsigned int, Templates::Rational<int> const &, short) override {}

    void streamData(unsigned int, KLV::Value & samples) override
    {
        samples_.resize(samples.remaining());
        samples.readValue(samples_.data(), samples_.size());
    }

private:
    std::vector<unsigned char> & samples_;
};

EightChannelOutput::EightChannelOutput(SoundFormat const & claimed, Maker maker) :
    format_(claimed), maker_(std::move(maker)), demux_(std::make_unique<Demux>(samples_))
{
    pending_.reserve(PENDING_SIZE);
}

EightChannelOutput::~EightChannelOutput() = default;

// Nothing of use lies behind the longest element that there is.
void EightChannelOutput::append(unsigned char const * bytes, std::size_t size)
{
    std::size_t const taken = std::min(size, LARGEST_ELEMENT - element_.size());
    element_.insert(element_.end(), bytes, bytes + taken);
}

// Some writers keep elements at one size, and others cut them: the samples that
// are there count.
void EightChannelOutput::endElement()
{
    if (element_.size() >= HEADER_SIZE)
    {
        unsigned int const claimed = headerOf(element_).sampleCount;
        auto const there = static_cast<unsigned int>((element_.size() - HEADER_SIZE) / S331M::SAMPLE_SIZE);
        if (there < claimed)
            note(fmt::format("an element of eight-channel sound has {} samples in place of {}", there, claimed));
        takeApart(std::min(claimed, there));
    }
    else
        note("an element of eight-channel sound is empty");
    element_.clear();
}

// Channel status is of no use here, and may be broken without harm.
void EightChannelOutput::takeApart(unsigned int samples)
{
    if (samples == 0)
        return;
    S331M::ElementHeader header = headerOf(element_);
    unsigned int const valid = header.channelValidFlags;
    if (!wave_)
        open(valid);
    for (unsigned int channel = 0; channel < S331M::CHANNELS; ++channel)
        if ((valid >> channel & 1) != 0 && std::find(channels_.begin(), channels_.end(), channel) == channels_.end())
            note(
                fmt::format("channel {} has sound that begins later than the others', and isn't written", channel + 1));

    header.flags = 0;
    header.sampleCount = static_cast<unsigned short>(samples);
    std::memcpy(element_.data(), &header, HEADER_SIZE);
    DataIO::Memory::MemoryDataSource source(element_.data(), HEADER_SIZE + samples * S331M::SAMPLE_SIZE);
    KLV::Value value(source, source.remaining());
    demux_->handleData(value);
    write(samples_);
}

void EightChannelOutput::open(unsigned int validChannels)
{
    for (unsigned int channel = 0; channel < S331M::CHANNELS; ++channel)
        if ((validChannels >> channel & 1) != 0)
            channels_.push_back(channel);
    for (unsigned int channel = 0; validChannels == 0 && channel < format_.channels; ++channel)
        channels_.push_back(channel);
    format_.channels = static_cast<unsigned short>(channels_.size());
    wave_ = maker_(format_);
}

void EightChannelOutput::write(std::vector<unsigned char> const & samples)
{
    std::size_t const bytes = format_.bitsPerSample / 8;
    std::size_t const size = samples.size() / (S331M::CHANNELS * S331M::DECODED_SIZE) * channels_.size() * bytes;
    if (pending_.size() + size > pending_.capacity())
        flush();
    std::size_t const start = pending_.size();
    pending_.resize(start + size);

    // The low byte goes where samples are shorter.
    unsigned char * to = pending_.data() + start;
    for (auto from = samples.begin(); from != samples.end(); from += S331M::CHANNELS * S331M::DECODED_SIZE)
        for (unsigned int channel : channels_)
            to =
                std::copy_n(from + static_cast<std::ptrdiff_t>((channel + 1) * S331M::DECODED_SIZE - bytes), bytes, to);
    wave_->append(pending_.data() + start, size);
}

void EightChannelOutput::flush()
{
    if (wave_)
        wave_->flush();
    pending_.clear();
}

void EightChannelOutput::complete()
{
    if (!wave_)
        open(0);
    wave_->complete();
}

void EightChannelOutput::publish()
{
    wave_->publish();
}

std::string EightChannelOutput::name() const
{
    return wave_ ? wave_->name() : std::string();
}

UInt64 EightChannelOutput::size() const
{
    return wave_ ? wave_->size() : 0;
}

void EightChannelOutput::note(std::string const & fault)
{
    if (fault_.empty())
        fault_ = fault;
}

}}
