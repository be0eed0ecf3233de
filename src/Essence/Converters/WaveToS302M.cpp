#include "Essence/Converters/WaveToS302M.h"

#include "DataIO/Chain.h"
#include "DataIO/Memory/MemoryBlockFactory.h"
#include "DataIO/SliceReader.h"
#include "Essence/AES3/S302M/Header.h"
#include "Essence/AES3/S302M/PackedPairs.h"
#include "Essence/RecordIn.h"
#include "Essence/SkipByReading.h"
#include "Essence/Wave/FormatChunk.h"
#include "Essence/Wave/WaveReader.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/NotImplemented.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

namespace Vantry { namespace Essence { namespace Converters {

namespace {

using AES3::S302M::Header;

UInt64 const LARGEST_PACKET = 65535 + Header::size();

// A wave of which the PCM is wanted.
class PCMBlocks : public Wave::WaveReader
{
public:
    explicit PCMBlocks(Templates::SharedPtr<DataIO::SliceSource> source) : WaveReader(std::move(source)) {}

    bool gotoData();
    void handleFormatChunk(UInt64 chunkLength) override;

    // Also where bytes are left that are no chunk.
    bool endOfStream() const override
    {
        return state() == STATE_END_OF_STREAM || state() == STATE_INVALID || WaveReader::endOfStream();
    }

    unsigned int bits() const noexcept { return format_.bitsPerSample; }
    unsigned int channels() const noexcept { return format_.channels; }
    unsigned int blockAlign() const noexcept { return format_.blockAlign; }

private:
    Wave::FormatPCMChunk format_;
    bool formatIsKnown_ = false;
};

bool PCMBlocks::gotoData()
{
    if (state() != STATE_IN_DATA)
        gotoNextDataChunk();

    // A block that has no room for its first two samples can't be taken.
    return state() == STATE_IN_DATA && formatIsKnown_ && blockAlign() != 0 && blockAlign() >= 2 * (bits() / 8);
}

void PCMBlocks::handleFormatChunk(UInt64 chunkLength)
{
    VANTRY_CHECK(chunkLength >= sizeof (Wave::FormatBaseChunk), InvalidFormat,
                 "Wave file Format chunk is shorter than expected");

    DataIO::Slice const headerSlice =
        *reader().readAligned(std::min<UInt64>(chunkLength, sizeof(Wave::FormatExtensibleChunk)));
    unsigned short const formatTag = recordIn<Wave::FormatBaseChunk>(headerSlice).wFormatTag;
    if (formatTag != Wave::FORMAT_TAG_PCM && formatTag != Wave::FORMAT_TAG_EXTENSIBLE)
        return;

    if (formatTag == Wave::FORMAT_TAG_EXTENSIBLE)
    {
        VANTRY_CHECK(headerSlice.size () >= sizeof (Wave::FormatExtensibleChunk), InvalidFormat,
                     "Wave Format Extensible Format chunk is shorter than expected");
        auto const format = recordIn<Wave::FormatExtensibleChunk>(headerSlice);
        if (std::memcmp(format.subFormat, Wave::FORMAT_EXTENSIBLE_PCM_LABEL, sizeof format.subFormat) != 0)
            return;
    }

    VANTRY_CHECK(headerSlice.size () >= sizeof (Wave::FormatPCMChunk), InvalidFormat,
                 "Wave PCM Format chunk is shorter than expected");
    format_ = recordIn<Wave::FormatPCMChunk>(headerSlice);
    formatIsKnown_ = true;
}

[[noreturn]] void failUnsupported(unsigned int number, char const * ofWhat)
{
    VANTRY_FAIL(InvalidFormat,
                Templates::string("SMPTE 302M does not support ") + std::to_string(number).c_str() + ofWhat);
}

// Packs the first two samples of each block, and silence for the other pairs.
template <unsigned int BITS>
void packBlocks(DataIO::Slice const & blocks, unsigned int blockAlign, unsigned int pairsPerBlock,
                unsigned char * packed)
{
    using Pair = AES3::S302M::SamplePair<BITS>;

    unsigned char const * block = blocks.begin();
    unsigned int silentPairs = 0;
    auto const nextPair = [&]() -> UInt64
    {
        if (silentPairs != 0)
        {
            --silentPairs;
            return 0;
        }
        silentPairs = pairsPerBlock - 1;
        UInt64 const samples = AES3::S302M::numberIn<2 * Pair::PCM_SIZE>(block);
        block += blockAlign;
        return Pair::pairOf(samples & Pair::SAMPLE_MASK, samples >> BITS);
    };
    AES3::S302M::packPairs<BITS>(blocks.size() / blockAlign * pairsPerBlock, nextPair, packed);
}

}

class WaveToS302M::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit Impl(Templates::SharedPtr<DataIO::SliceSource> source) :
        wave_(new PCMBlocks(std::move(source))), blocks_(wave_), offset_(0)
    {
    }

    bool preload() { return wave_->gotoData(); }
    Templates::auto_ptr<DataIO::Slice> read(UInt64 size);

    // Puts bytes of a packet that was read ahead of all others.
    void giveBack(Templates::auto_ptr<DataIO::Slice> slice)
    {
        offset_ -= slice->size();
        givenBack_.push_front(slice);
    }

    bool ended() const { return givenBack_.empty() && blocks_.endOfStream(); }
    UInt64 offset() const noexcept { return offset_; }

private:
    Templates::auto_ptr<DataIO::Slice> nextPacket(UInt64 size);
    Templates::auto_ptr<DataIO::Slice> packetOf(DataIO::Slice const & blocks) const;
    void checkFormat() const;

    // Bytes that one sample of all channels takes in a packet.
    UInt64 groupSize() const noexcept { return UInt64(wave_->bits() + 4) * wave_->channels() / 8; }

    Templates::SharedPtr<PCMBlocks> wave_;
    DataIO::SliceReader blocks_;
    DataIO::Chain givenBack_;
    UInt64 offset_;
};

Templates::auto_ptr<DataIO::Slice> WaveToS302M::Impl::read(UInt64 size)
{
    Templates::auto_ptr<DataIO::Slice> slice =
        givenBack_.empty() ? nextPacket(size) : givenBack_.erase(givenBack_.begin());
    offset_ += slice->size();
    return slice;
}

Templates::auto_ptr<DataIO::Slice> WaveToS302M::Impl::nextPacket(UInt64 size)
{
    VANTRY_CHECK(this -> preload (), InvalidFormat, "Wave file contains invalid data");
    checkFormat();

    UInt64 const groups = std::max<UInt64>(std::min(size, LARGEST_PACKET) / groupSize(), 1);
    Templates::auto_ptr<DataIO::Slice> blocks = blocks_.read(groups * wave_->blockAlign());
    blocks->cropEnd(blocks->size() % wave_->blockAlign());
    return blocks->size() != 0 ? packetOf(*blocks) : blocks;
}

Templates::auto_ptr<DataIO::Slice> WaveToS302M::Impl::packetOf(DataIO::Slice const & blocks) const
{
    UInt64 const payload = blocks.size() / wave_->blockAlign() * groupSize();
    DataIO::BlockHolder const block = DataIO::Memory::MemoryBlockFactory::instance().create(Header::size() + payload);

    Header header;
    header.audioPacketSize(static_cast<unsigned short>(payload));
    header.numberOfChannels(static_cast<unsigned char>(wave_->channels()));
    header.bitsPerSample(static_cast<unsigned char>(wave_->bits()));
    unsigned char * const packed = std::copy_n(header.data(), Header::size(), block.block()->data());

    auto const pack = wave_->bits() == 16 ? packBlocks<16> : packBlocks<24>;
    pack(blocks, wave_->blockAlign(), wave_->channels() / 2, packed);
    return Templates::auto_ptr<DataIO::Slice>(new DataIO::Slice(block.block(), 0, Header::size() + payload));
}

void WaveToS302M::Impl::checkFormat() const
{
    if (wave_->bits() == 20)
        VANTRY_FAIL(NotImplemented, AES3::S302M::NO_TWENTY_BITS);

    Header header;
    header.bitsPerSample(static_cast<unsigned char>(std::min(wave_->bits(), 255u)));
    if (header.bitsPerSample() != wave_->bits())
        failUnsupported(wave_->bits(), " bits per sample.");

    header.numberOfChannels(static_cast<unsigned char>(std::min(wave_->channels(), 255u)));
    if (header.numberOfChannels() != wave_->channels())
        failUnsupported(wave_->channels(), " channels.");
}

WaveToS302M::WaveToS302M(Templates::SharedPtr<DataIO::SliceSource> source) : impl_(new Impl(std::move(source))) {}

WaveToS302M::~WaveToS302M()
{
    delete impl_;
}

bool WaveToS302M::preload()
{
    return impl_->preload();
}

Templates::auto_ptr<DataIO::Slice> WaveToS302M::read(UInt64 howMuch)
{
    return impl_->read(howMuch);
}

UInt64 WaveToS302M::absoluteOffset() const
{
    return impl_->offset();
}

bool WaveToS302M::endOfStream() const
{
    return impl_->ended();
}

UInt64 WaveToS302M::skip(UInt64 howMuch)
{
    return skipByReading(*impl_, howMuch);
}

}}}
