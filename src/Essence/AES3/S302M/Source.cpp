#include "Essence/AES3/S302M/Source.h"

#include "DataIO/Chain.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "DataIO/SliceReader.h"
#include "Essence/AES3/AES3Info.h"
#include "Essence/AES3/S302M/DataType.h"
#include "Essence/AES3/S302M/Header.h"
#include "Essence/AES3/S302M/SampleReader.h"
#include "Essence/RecordIn.h"
#include "Essence/SkipByReading.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace Essence { namespace AES3 { namespace S302M {

namespace {

// What a call passes over of a stream that has no packets, so that it ends.
UInt64 const PASSED_OVER = 65536;

}

class Source::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit Impl(Templates::SharedPtr<DataIO::SliceSource> source) :
        packets_(std::move(source)), state_(STATE_UNKNOWN), offset_(0)
    {
    }

    bool preload();
    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch);

    // Puts bytes that were read ahead of all others.
    void giveBack(Templates::auto_ptr<DataIO::Slice> slice);

    bool ended() const { return pcm_.empty() && packets_.endOfStream(); }
    UInt64 offset() const noexcept { return offset_; }
    AES3Info const & info() const noexcept { return info_; }

private:
    enum State
    {
        STATE_UNKNOWN,
        STATE_VALID,
        STATE_INVALID
    };

    bool readFirstPacket();
    bool readPacket();
    void begin(Header const & header);
    void decode(DataIO::Slice const & packed);
    void describe();

    DataIO::SliceReader packets_;
    DataIO::Chain pcm_;
    State state_;
    UInt64 offset_;
    AES3Info info_;
    Templates::auto_ptr<SampleReaderBase> samples_;
    Templates::vector<ChannelStatus> channelStatus_;
    Templates::vector<ChannelStatusLoader> loaders_;
};

bool Source::Impl::preload()
{
    if (state_ == STATE_UNKNOWN && readFirstPacket())
    {
        describe();
        state_ = STATE_VALID;
    }
    return state_ == STATE_VALID;
}

// What a packet gave that counts for nothing isn't kept.
bool Source::Impl::readFirstPacket()
try
{
    bool const isWhole = readPacket();
    if (!isWhole)
        pcm_.clear();
    return isWhole;
}
catch (Exceptions::InvalidFormat const &)
{
    pcm_.clear();
    state_ = STATE_INVALID;
    return false;
}

bool Source::Impl::readPacket()
{
    Templates::auto_ptr<DataIO::Slice> const slice = packets_.read(Header::size());
    if (slice->size() < Header::size())
        return false;

    auto const header = recordIn<Header>(*slice);
    if (header.audioPacketSize() == 0)
        return false;
    if (samples_.get() == nullptr)
        begin(header);

    UInt64 const groupSize = samples_->groupSize();
    UInt64 left = header.audioPacketSize();
    while (left >= groupSize && !packets_.endOfStream())
    {
        Templates::auto_ptr<DataIO::Slice> packed = packets_.nextSliceAligned(left - left % groupSize, groupSize);
        packed->cropEnd(packed->size() % groupSize);
        left -= packed->size();
        if (packed->size() != 0)
            decode(*packed);
    }
    packets_.skip(left);
    return left == 0;
}

void Source::Impl::begin(Header const & header)
{
    info_.bitsPerSample = header.bitsPerSample();
    info_.channels = header.numberOfChannels();
    info_.bytesPerSampleGroup = static_cast<unsigned char>(info_.channels * ((info_.bitsPerSample + 7) / 8));

    channelStatus_.resize(info_.channels);
    for (ChannelStatus & status : channelStatus_)
        loaders_.emplace_back(status);
    samples_ = SampleReaderBase::create(info_.bitsPerSample, info_.channels / 2u);
}

void Source::Impl::decode(DataIO::Slice const & packed)
{
    UInt64 const groups = packed.size() / samples_->groupSize();
    UInt64 const size = groups * info_.bytesPerSampleGroup;
    DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(size);

    samples_->loadChannelStatus(packed.begin(), groups, loaders_);
    samples_->decode(packed.begin(), groups * samples_->pairsPerGroup(), block.block()->data());
    pcm_.push_back(Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(block.block(), 0, size)));
}

// The last channel whose status is there tells for all.
void Source::Impl::describe()
{
    for (UInt64 i = 0; i < channelStatus_.size(); ++i)
    {
        if (!loaders_[i].isComplete())
            continue;

        ChannelStatus const & status = channelStatus_[i];
        info_.samplingFrequency = status.samplingFrequency();
        info_.lockIndication = status.lockIndication();
        info_.useOfAuxiliarySampleBits = status.useOfAuxiliarySampleBits();
        info_.channelMode = status.channelMode();
        info_.audioSignalEmphasis = status.audioSignalEmphasis();
        info_.channelStatus = status.data();
    }

    info_.dataType = dataTypeIn(*pcm_.makeSlice(0, pcm_.data_size()), info_.bitsPerSample);
}

Templates::auto_ptr<DataIO::Slice> Source::Impl::read(UInt64)
{
    if (!ended() && preload() && pcm_.empty())
        readPacket();
    if (state_ == STATE_INVALID)
        packets_.skip(PASSED_OVER);
    if (pcm_.empty())
        return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice);

    Templates::auto_ptr<DataIO::Slice> slice = pcm_.erase(pcm_.begin());
    offset_ += slice->size();
    return slice;
}

void Source::Impl::giveBack(Templates::auto_ptr<DataIO::Slice> slice)
{
    offset_ -= slice->size();
    pcm_.push_front(slice);
}

Source::Source(Templates::SharedPtr<DataIO::SliceSource> source) : impl_(new Impl(std::move(source))) {}

Source::~Source()
{
    delete impl_;
}

bool Source::preload()
{
    return impl_->preload();
}

Templates::auto_ptr<DataIO::Slice> Source::read(UInt64 howMuch)
{
    return impl_->read(howMuch);
}

UInt64 Source::absoluteOffset() const
{
    return impl_->offset();
}

bool Source::endOfStream() const
{
    return impl_->ended();
}

UInt64 Source::skip(UInt64 howMuch)
{
    return skipByReading(*impl_, howMuch);
}

UInt64 Source::readSamples(UInt64 count, DataIO::Chain & destination)
{
    UInt64 delivered = 0;
    while (delivered < count && !impl_->ended())
    {
        Templates::auto_ptr<DataIO::Slice> slice = impl_->read(count - delivered);
        UInt64 const groupSize = impl_->info().bytesPerSampleGroup;
        if (slice->size() < std::max<UInt64>(groupSize, 1))
            continue;

        UInt64 const samples = slice->size() / groupSize;
        UInt64 const wanted = std::min(samples, count - delivered);
        if (wanted < samples)
            impl_->giveBack(slice->splice(slice->begin() + wanted * groupSize));
        destination.push_back(slice);
        delivered += wanted;
    }
    return delivered;
}

AES3Info const & Source::info()
{
    VANTRY_CHECK(impl_ -> preload (), InvalidFormat, "Trying to get info for a file with an invalid format");
    return impl_->info();
}

}}}}
