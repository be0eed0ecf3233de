#include "Essence/Converters/S331MDemux.h"

#include "DataIO/Memory/MemoryDataSource.h"
#include "Essence/AES3/ChannelStatus.h"
#include "Essence/AES3/ChannelStatusLoader.h"
#include "Essence/AES3/S331M.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidValue.h"
#include "KLV/Value.h"
#include "Templates/Containers.h"
#include "Templates/SharedPtr.h"

#include <algorithm>
#include <cstring>

namespace Vantry { namespace Essence { namespace Converters {

namespace S331M = AES3::S331M;

namespace {

// Bytes that are taken at once: they and what becomes of them stay in the
// first cache of a processor.
UInt64 const BUFFER_SIZE = 512 * S331M::SAMPLE_SIZE;

// Decodes `count` samples of `CHANNELS` channels, of which bit n of
// `validFlags` tells of channel n. Writes whole words, so one byte behind the
// last sample too.
template <unsigned int CHANNELS>
void decode(unsigned char * out, unsigned char const * words, UInt64 count, unsigned int validFlags, bool ignoreValid)
{
    UInt32 silenced[CHANNELS];
    for (unsigned int n = 0; n < CHANNELS; ++n)
        silenced[n] = (validFlags >> n & 1) != 0 ? 0 : S331M::INVALID_BIT;

    for (UInt64 i = 0; i < count; ++i, words += S331M::SAMPLE_SIZE)
        for (unsigned int n = 0; n < CHANNELS; ++n, out += S331M::DECODED_SIZE)
        {
            UInt32 const word = S331M::wordAt(words + n * S331M::WORD_SIZE) | silenced[n];
            S331M::putWord(out, S331M::sampleOf(word, ignoreValid));
        }
}

auto decoderOf(unsigned int channels)
{
    switch (channels)
    {
    case 1:
        return decode<1>;
    case 2:
        return decode<2>;
    case 4:
        return decode<4>;
    default:
        return decode<8>;
    }
}

// The channels of one stream in the present element.
class ChannelGroup
{
public:
    VANTRY_CLASS_ALLOCATION

    ChannelGroup(unsigned int firstChannel, unsigned int channels) :
        firstChannel_(firstChannel), channels_(channels), filled_(0), loader_(channelStatus_)
    {
    }
    ChannelGroup(ChannelGroup const &) = delete;
    ChannelGroup & operator=(ChannelGroup const &) = delete;

    void beginElement(UInt64 sampleCount)
    {
        samples_.resize(sampleCount * sampleSize() + BYTES_BEHIND);
        filled_ = 0;
    }

    // Takes `count` samples; `words` are those of all channels.
    void take(unsigned char const * words, UInt64 count, S331M::ElementHeader const & header, bool ignoreValid)
    {
        words += firstChannel_ * S331M::WORD_SIZE;
        if ((header.flags & S331M::ElementHeader::FVUCP_VALID) != 0)
            loadStatus(words, count);

        unsigned int const validFlags = header.channelValidFlags >> firstChannel_;
        decoderOf(channels_)(samples_.data() + filled_, words, count, validFlags, ignoreValid);
        filled_ += count * sampleSize();
    }

    // Waits for channel status anew, where it isn't whole.
    void dropPartialStatus() noexcept
    {
        if (!loader_.isComplete())
            loader_.reset();
    }

    Templates::Rational<int> samplingFrequency() const
    {
        return loader_.isComplete() ? channelStatus_.samplingFrequency() : Templates::Rational<int>();
    }

    short sourceWordLength() const noexcept { return loader_.isComplete() ? channelStatus_.sourceWordLength() : 0; }

    // The samples of the element, once all are taken.
    unsigned char const * samples() const noexcept { return samples_.data(); }
    UInt64 size() const noexcept { return filled_; }

private:
    // What `decode` writes behind the last sample.
    static constexpr UInt64 BYTES_BEHIND = S331M::WORD_SIZE - S331M::DECODED_SIZE;

    UInt64 sampleSize() const noexcept { return UInt64(channels_) * S331M::DECODED_SIZE; }

    void loadStatus(unsigned char const * words, UInt64 count)
    {
        for (UInt64 i = 0; i < count && !loader_.isComplete(); ++i, words += S331M::SAMPLE_SIZE)
        {
            UInt32 const word = S331M::wordAt(words);
            loader_.push((word & S331M::FRAME_BIT) != 0, (word & S331M::CHANNEL_STATUS_BIT) != 0);
        }
    }

    unsigned int firstChannel_;
    unsigned int channels_;
    Templates::vector<unsigned char> samples_;
    UInt64 filled_;
    AES3::ChannelStatus channelStatus_;
    AES3::ChannelStatusLoader loader_;
};

}

class S331MDemux::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(S331MDemux & demux, unsigned char channelsPerStream) :
        demux_(demux),
        buffer_(BUFFER_SIZE),
        filled_(0),
        header_{},
        samplesLeft_(0),
        infoIsGiven_(false),
        channelValidFlags_(0),
        ignoreValid_(false)
    {
        VANTRY_CHECK(channelsPerStream != 0 && S331M::CHANNELS % channelsPerStream == 0, InvalidValue,
                     "Eight channels make streams of 1, 2, 4 or 8");
        for (unsigned int first = 0; first < S331M::CHANNELS; first += channelsPerStream)
            streams_.push_back(Templates::SharedPtr<ChannelGroup>(new ChannelGroup(first, channelsPerStream)));
    }

    void handleData(KLV::Value & value)
    try
    {
        while (UInt64 const got = value.read(buffer_.data() + filled_, BUFFER_SIZE - filled_))
        {
            filled_ += got;
            UInt64 const taken = take(buffer_.data(), filled_);
            filled_ -= taken;
            std::memmove(buffer_.data(), buffer_.data() + taken, filled_);
        }
    }
    catch (...)
    {
        startAnew();
        throw;
    }

    bool ignoreValid() const noexcept { return ignoreValid_; }
    void ignoreValid(bool ignore) noexcept { ignoreValid_ = ignore; }
    unsigned char channelValidFlags() const noexcept { return channelValidFlags_; }

private:
    // Takes headers and samples that are whole, and returns the bytes of them.
    UInt64 take(unsigned char const * bytes, UInt64 size)
    {
        UInt64 taken = 0;
        for (;;)
        {
            UInt64 const left = size - taken;
            UInt64 const part = samplesLeft_ == 0 ? takeHeader(bytes + taken, left) : takeSamples(bytes + taken, left);
            if (part == 0)
                return taken;
            taken += part;
        }
    }

    UInt64 takeHeader(unsigned char const * bytes, UInt64 size)
    {
        if (size < sizeof(header_))
            return 0;

        std::memcpy(static_cast<void *>(&header_), bytes, sizeof(header_));
        for (auto const & stream : streams_)
            stream->beginElement(header_.sampleCount);
        samplesLeft_ = header_.sampleCount;
        return sizeof(header_);
    }

    UInt64 takeSamples(unsigned char const * words, UInt64 size)
    {
        UInt64 const count = std::min(samplesLeft_, size / S331M::SAMPLE_SIZE);
        if (count == 0)
            return 0;

        for (auto const & stream : streams_)
            stream->take(words, count, header_, ignoreValid_);
        samplesLeft_ -= count;
        if (samplesLeft_ == 0)
            endElement();
        return count * S331M::SAMPLE_SIZE;
    }

    void endElement()
    {
        if (!infoIsGiven_)
            giveInfo();

        for (unsigned int n = 0; n < streams_.size(); ++n)
        {
            DataIO::Memory::MemoryDataSource source(streams_[n]->samples(), streams_[n]->size());
            KLV::Value value(source, streams_[n]->size());
            demux_.streamData(n, value);
        }
    }

    void giveInfo()
    {
        channelValidFlags_ = header_.channelValidFlags;
        for (unsigned int n = 0; n < streams_.size(); ++n)
            demux_.streamInfo(n, streams_[n]->samplingFrequency(), streams_[n]->sourceWordLength());
        infoIsGiven_ = true;
    }

    void startAnew() noexcept
    {
        filled_ = 0;
        samplesLeft_ = 0;
        for (auto const & stream : streams_)
            stream->dropPartialStatus();
    }

    S331MDemux & demux_;
    Templates::vector<Templates::SharedPtr<ChannelGroup>> streams_;

    // What is taken from a value; first what was left of the one before.
    Templates::vector<unsigned char> buffer_;
    UInt64 filled_;

    S331M::ElementHeader header_;
    UInt64 samplesLeft_;
    bool infoIsGiven_;
    unsigned char channelValidFlags_;
    bool ignoreValid_;
};

S331MDemux::S331MDemux(unsigned char channelsPerStream) : impl_(new Impl(*this, channelsPerStream)) {}

S331MDemux::~S331MDemux()
{
    delete impl_;
}

void S331MDemux::handleData(KLV::Value & value)
{
    impl_->handleData(value);
}

bool S331MDemux::ignoreValidChannelFlag() const
{
    return impl_->ignoreValid();
}

void S331MDemux::ignoreValidChannelFlag(bool ignore)
{
    impl_->ignoreValid(ignore);
}

unsigned char S331MDemux::channelValidFlags() const
{
    return impl_->channelValidFlags();
}

}}}
