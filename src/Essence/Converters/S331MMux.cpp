#include "Essence/Converters/S331MMux.h"

#include "DataIO/Memory/MemoryBlockFactory.h"
#include "Essence/AES3/S331M.h"
#include "Essence/Converters/PCMAudioChannelMixer.h"
#include "Essence/Converters/S331MMuxHelpers/AES3Source.h"
#include "Essence/Converters/S331MMuxHelpers/NullAES3Source.h"
#include "Essence/Converters/S331MMuxHelpers/PCMSource.h"
#include "Essence/Converters/S331MMuxHelpers/PCMWaveReader.h"
#include "Essence/SampleCountSelector.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidValue.h"
#include "Exceptions/NotImplemented.h"
#include "Exceptions/OperationNotAllowed.h"
#include "Templates/Containers.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace Vantry { namespace Essence { namespace Converters {

namespace S331M = AES3::S331M;
using Stream = Templates::SharedPtr<DataIO::SliceSource>;
using S331MMuxHelpers::AES3Source;
using S331MMuxHelpers::BasicSource;
using S331MMuxHelpers::NullAES3Source;
using S331MMuxHelpers::PCMLayout;
using S331MMuxHelpers::PCMSource;
using S331MMuxHelpers::PCMWaveReader;

namespace {

int const SAMPLING_RATE = 48000;

enum Type : unsigned char
{
    TYPE_AES3 = 0,
    TYPE_PCM = 1,
    TYPE_WAVE = 2
};

// A stream as it was added. The layout is that of PCM.
struct InitialSource
{
    Type type;
    Stream stream;
    PCMLayout pcmInfo;
};

// Streams with the waves opened and the mono ones joined in pairs.
class SourceList
{
public:
    // A mixer while it takes mono streams, otherwise null.
    using Mixer = Templates::SharedPtr<PCMAudioChannelMixer>;

    struct Entry
    {
        InitialSource source;
        Mixer mixer;
    };

    void enter(InitialSource const & source)
    {
        switch (source.type)
        {
        case TYPE_AES3:
            VANTRY_CHECK_TEXT(isMonoAudioMixerComplete(), MIXER_IS_COMPLETE, OperationNotAllowed,
                              "A pair of mono audio channels must be provided prior to aes3 essence.");
            return entries_.push_back({source, Mixer()});
        case TYPE_PCM:
            return enterPCM(source.stream, source.pcmInfo);
        case TYPE_WAVE:
            return enterWave(source.stream);
        }
        VANTRY_FAIL(NotImplemented, "Unsupported type of audio stream.");
    }

    // All that was entered, once nothing more comes.
    Templates::vector<Entry> const & entries() const
    {
        VANTRY_CHECK_TEXT(isMonoAudioMixerComplete(), MIXER_IS_COMPLETE, OperationNotAllowed,
                          "Mono audio channels must always be provided in pairs.");
        return entries_;
    }

private:
    static constexpr char const * MIXER_IS_COMPLETE = "this -> isMonoAudioMixerComplete ()";

    bool isMonoAudioMixerComplete() const
    {
        return entries_.empty() || !entries_.back().mixer || entries_.back().mixer->size() == 2;
    }

    void enterWave(Stream const & stream)
    {
        auto * const reader = new PCMWaveReader(stream);
        Stream const pcmSource(reader);
        VANTRY_CHECK_TEXT(reader->preload(), "pcmSource -> preload ()", InvalidFormat,
                          "Unable to read Wave header from stream.");
        enterPCM(pcmSource, {reader->bitsPerSample(), reader->validBitsPerSample(), reader->numberOfChannels(),
                             reader->samplesPerSecond(), reader->numberBlockAlign()});
    }

    void enterPCM(Stream const & stream, PCMLayout const & layout)
    {
        if (layout.channels == 1)
            return enterMono(stream, layout);

        VANTRY_CHECK_TEXT(isMonoAudioMixerComplete(), MIXER_IS_COMPLETE, OperationNotAllowed,
                          "A pair of mono audio channels must be provided prior to multiple audio channels.");
        entries_.push_back({{TYPE_PCM, stream, layout}, Mixer()});
    }

    void enterMono(Stream const & stream, PCMLayout const & layout)
    {
        if (isMonoAudioMixerComplete())
        {
            Mixer const mixer(new PCMAudioChannelMixer);
            addTo(*mixer, stream, layout);
            return entries_.push_back({{TYPE_PCM, mixer, layout}, mixer});
        }

        PCMLayout & pair = entries_.back().source.pcmInfo;
        checkPair(pair, layout);
        addTo(*entries_.back().mixer, stream, layout);
        pair.channels += layout.channels;
        pair.blockAlign += layout.blockAlign;
    }

    static void checkPair(PCMLayout const & last, PCMLayout const & added)
    {
        VANTRY_CHECK_TEXT(last.bitsPerSample == added.bitsPerSample,
                          "lastSourceInfo -> pcmInfo.bitsPerSample == bitsPerSample", OperationNotAllowed,
                          "Trying to add mono channels with different sampling bits.");
        VANTRY_CHECK_TEXT(last.validBitsPerSample == added.validBitsPerSample,
                          "lastSourceInfo -> pcmInfo.validBitsPerSample == validBitsPerSample", OperationNotAllowed,
                          "Trying to add mono channels with different valid sampling bits.");
        VANTRY_CHECK_TEXT(last.samplingFrequency == added.samplingFrequency,
                          "lastSourceInfo -> pcmInfo.samplingFrequency == samplingFrequency", OperationNotAllowed,
                          "Trying to add mono channels with different sampling frequency.");
        VANTRY_CHECK(last.blockAlign == added.blockAlign, OperationNotAllowed,
                     "Trying to add mono channels with different bytes per sample.");
    }

    static void addTo(PCMAudioChannelMixer & mixer, Stream const & stream, PCMLayout const & layout)
    {
        mixer.addSource(stream, layout.bitsPerSample, layout.validBitsPerSample, layout.channels,
                        layout.samplingFrequency, layout.blockAlign);
    }

    Templates::vector<Entry> entries_;
};

}

class S331MMux::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit Impl(Templates::Rational<int> const & editRate) :
        initialised_(false),
        nextChannel_(0),
        words_(0),
        channelValidFlags_(0),
        bitsPerSample_(0),
        samples_(SAMPLING_RATE, editRate),
        bytesProduced_(0)
    {
        // Counted anew, since the selector has a count of 16 bits.
        Templates::Rational<int> const samples = Templates::Rational<int>(SAMPLING_RATE) / editRate;
        VANTRY_CHECK(samples >= 1 && samples < std::numeric_limits<unsigned short>::max(), InvalidValue,
                     "An eight-channel element has 1 to 65535 samples");
    }

    void add(Type type, Stream stream, PCMLayout const & pcmInfo)
    {
        VANTRY_CHECK(!initialised_, OperationNotAllowed, "Sources come ahead of the first element");
        VANTRY_CHECK_TEXT(initialSources_.size() < MAXIMUM_NUMBER_OF_SOURCES,
                          "initialSources_.size () < MAXIMUM_NUMBER_OF_SOURCES", OperationNotAllowed,
                          "Trying do add more sources than allowed in S331Mux.");
        initialSources_.push_back({type, std::move(stream), pcmInfo});
    }

    Templates::auto_ptr<DataIO::Slice> read()
    {
        if (endOfStream())
            return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice);

        unsigned short const count = samples_.currentSampleCount();
        for (auto const & source : sources_)
            source->prepare(count);

        UInt64 const size = sizeof(S331M::ElementHeader) + UInt64(count) * S331M::SAMPLE_SIZE;
        DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(size);
        unsigned char * at = writeHeader(block.block()->data(), count);
        for (auto const & source : sources_)
            at = source->writeSamples(at, count);

        samples_.nextElement();
        bytesProduced_ += size;
        return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(block.block(), 0, size));
    }

    bool endOfStream()
    {
        initialise();
        return std::any_of(sources_.begin(), sources_.end(), [](auto const & source) { return source->endOfStream(); });
    }

    UInt64 bytesProduced() const noexcept { return bytesProduced_; }

private:
    using Source = Templates::SharedPtr<BasicSource>;

    void initialise()
    {
        if (initialised_)
            return;

        forgetSources();
        SourceList list;
        for (InitialSource const & source : initialSources_)
            list.enter(source);
        fillChannels(list.entries());
        initialSources_.clear();
        initialised_ = true;
    }

    // What an earlier attempt left.
    void forgetSources() noexcept
    {
        sources_.clear();
        nextChannel_ = 0;
        words_ = 0;
        channelValidFlags_ = 0;
        bitsPerSample_ = 0;
    }

    void fillChannels(Templates::vector<SourceList::Entry> const & entries)
    {
        for (auto entry = entries.begin(); entry != entries.end() && nextChannel_ < S331M::CHANNELS; ++entry)
            take(sourceOf(entry->source));

        for (; nextChannel_ < S331M::CHANNELS; nextChannel_ += 2, channelValidFlags_ >>= 2)
        {
            sources_.push_back(Source(new NullAES3Source(nextChannel_)));
            words_ += 2;
        }
        VANTRY_CHECK(words_ == S331M::CHANNELS, OperationNotAllowed,
                     "The channels of all streams don't make the eight of an element");
    }

    Source sourceOf(InitialSource const & source) const
    {
        if (source.type == TYPE_AES3)
            return Source(new AES3Source(nextChannel_, source.stream));
        return Source(new PCMSource(nextChannel_, source.stream, source.pcmInfo));
    }

    void take(Source const & source)
    {
        unsigned char channels = 0;
        unsigned char bitsPerSample = 0;
        source->info(channels, bitsPerSample);
        sources_.push_back(source);

        nextChannel_ += channels;
        words_ += channels / 2 * 2;
        for (unsigned int n = 0; n < channels; ++n)
            channelValidFlags_ = static_cast<unsigned char>(channelValidFlags_ >> 1 | 0x80);

        if (bitsPerSample == 0)
            return;
        if (bitsPerSample_ == 0)
            bitsPerSample_ = bitsPerSample;
        VANTRY_CHECK_TEXT(bitsPerSample_ == bitsPerSample, "bitsPerSample_ == bitsPerSample", InvalidFormat,
                          "Trying to multiplex AES sources with different number of bits per sample");
    }

    unsigned char * writeHeader(unsigned char * out, unsigned short count) const noexcept
    {
        S331M::ElementHeader header;
        header.flags = static_cast<unsigned char>(S331M::ElementHeader::FVUCP_VALID |
                                                  (samples_.sequenceCount() & S331M::ElementHeader::SEQUENCE_COUNT));
        header.sampleCount = count;
        header.channelValidFlags = channelValidFlags_;
        std::memcpy(out, &header, sizeof(header));
        return out + sizeof(header);
    }

    Templates::vector<InitialSource> initialSources_;
    Templates::vector<Source> sources_;
    bool initialised_;
    unsigned char nextChannel_;
    unsigned int words_;
    unsigned char channelValidFlags_;
    unsigned char bitsPerSample_;
    SampleCountSelector samples_;
    UInt64 bytesProduced_;
};

S331MMux::S331MMux(Templates::Rational<int> const & editRate) : impl_(new Impl(editRate)) {}

S331MMux::~S331MMux()
{
    delete impl_;
}

void S331MMux::addAES3Stream(Stream stream)
{
    impl_->add(TYPE_AES3, std::move(stream), PCMLayout());
}

void S331MMux::addWaveStream(Stream stream)
{
    impl_->add(TYPE_WAVE, std::move(stream), PCMLayout());
}

void S331MMux::addPCMStream(Stream stream, unsigned short bitsPerSample, unsigned short validBitsPerSample,
                            unsigned short channels, unsigned int samplingFrequency, unsigned short blockAlign)
{
    impl_->add(TYPE_PCM, std::move(stream),
               {bitsPerSample, validBitsPerSample, channels, samplingFrequency, blockAlign});
}

Templates::auto_ptr<DataIO::Slice> S331MMux::read(UInt64)
{
    return impl_->read();
}

UInt64 S331MMux::absoluteOffset() const
{
    return impl_->bytesProduced();
}

bool S331MMux::endOfStream() const
{
    return impl_->endOfStream();
}

UInt64 S331MMux::skip(UInt64)
{
    return impl_->read()->size();
}

}}}
