#include "EssenceForms.h"

#include "Exceptions/InvalidValue.h"
#include "Metadata/Structural/GenericPictureEssenceDescriptor.h"
#include "Metadata/Structural/WAVEAudioEssenceDescriptor.h"
#include "Types/Rational.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UniversalLabel.h"

#include <algorithm>
#include <iterator>

namespace Vantry { namespace Application {

using GenericContainer::RP224UniversalLabels;
using Metadata::Structural::FileDescriptor;
using Metadata::Structural::GenericPictureEssenceDescriptor;
using Metadata::Structural::GenericSoundEssenceDescriptor;
using Metadata::Structural::WAVEAudioEssenceDescriptor;

namespace {

// Labels by their bytes from 8 on, as RP 224 has them; the bytes ahead say
// that it is a label, and the version of the register.
int const ITEM = 8;

template <std::size_t N>
bool hasItem(Types::UniversalLabel const & label, unsigned char const (&item)[N])
{
    return std::equal(std::begin(item), std::end(item), label.rawBuffer() + ITEM);
}

unsigned char const GENERIC_CONTAINER[] = {0x0D, 0x01, 0x03, 0x01, 0x02};
int const MAPPING_BYTE = 13;
unsigned char const AVC_NAL_UNITS = 0x0F;
unsigned char const HEVC_NAL_UNITS = 0x1F;
unsigned char const HEVC_BYTE_STREAM = 0x20;

unsigned char const MPEG_CODING[] = {0x04, 0x01, 0x02, 0x02, 0x01};
unsigned char const DV_CODING[] = {0x04, 0x01, 0x02, 0x02, 0x02};
unsigned char const JPEG_2000_CODING[] = {0x04, 0x01, 0x02, 0x02, 0x03, 0x01};
int const MPEG_BYTE = 13;

unsigned char const UNCOMPRESSED_SOUND[] = {0x04, 0x02, 0x02, 0x01};

// Track numbers of the sound element of SMPTE 386M, but for the count and the
// number of the element.
unsigned const EIGHT_CHANNEL_ELEMENT = 0x06001000;
unsigned const ITEM_AND_TYPE = 0xFF00FF00;
unsigned short const MOST_CHANNELS = 8;

unsigned char mappingByte(Types::UniversalLabel const & container)
{
    return hasItem(container, GENERIC_CONTAINER) ? container[MAPPING_BYTE] : 0;
}

EssenceForm formOfMpeg(unsigned char coding)
{
    if (coding >= 0x01 && coding < 0x10)
        return EssenceForm::MPEG2_VIDEO;
    if (coding >= 0x30 && coding < 0x40)
        return EssenceForm::AVC;
    if (coding >= 0x40 && coding < 0x50)
        return EssenceForm::HEVC;
    return EssenceForm::OTHER;
}

/// Nothing when the label is none of a coding that has a form of its own.
std::optional<EssenceForm> formOfCoding(Types::UniversalLabel const & coding)
{
    if (hasItem(coding, MPEG_CODING))
        return formOfMpeg(coding[MPEG_BYTE]);
    if (hasItem(coding, DV_CODING))
        return EssenceForm::DV;
    if (hasItem(coding, JPEG_2000_CODING))
        return EssenceForm::JPEG_2000;
    return std::nullopt;
}

EssenceForm formOfContainer(Types::UniversalLabel const & container)
{
    if (mappingByte(container) == HEVC_BYTE_STREAM)
        return EssenceForm::HEVC;
    switch (containerInfo(&container).mapping)
    {
    case RP224UniversalLabels::MPEG_ELEMENTARY:
    case RP224UniversalLabels::D10:
        return EssenceForm::MPEG2_VIDEO;
    case RP224UniversalLabels::AVC_BYTE_STREAM:
        return EssenceForm::AVC;
    case RP224UniversalLabels::JPEG_2000:
        return EssenceForm::JPEG_2000;
    case RP224UniversalLabels::DV:
        return EssenceForm::DV;
    default:
        return EssenceForm::OTHER;
    }
}

bool isUncompressed(GenericSoundEssenceDescriptor const & sound)
{
    Types::UniversalLabel const * const compression = sound.soundEssenceCompression();
    return compression == nullptr || hasItem(*compression, UNCOMPRESSED_SOUND);
}

/// The samples may take more bytes than their bits need.
unsigned storedBits(GenericSoundEssenceDescriptor const & sound, unsigned channels)
{
    auto const * const wave = dynamic_cast<WAVEAudioEssenceDescriptor const *>(&sound);
    unsigned const blockAlign = wave != nullptr && wave->blockAlign() != nullptr ? wave->blockAlign()->value() : 0;
    if (blockAlign != 0)
        return blockAlign % channels == 0 ? blockAlign / channels * 8 : 0;
    return sound.quantizationBits() != nullptr ? (sound.quantizationBits()->value() + 7) / 8 * 8 : 0;
}

std::optional<SoundFormat> formatOf(GenericSoundEssenceDescriptor const & sound)
{
    unsigned const MOST_CHANNELS = 0xFFFF / 4;

    Types::Rational const * const rate = sound.audioSamplingRate();
    unsigned const channels = sound.channelCount() != nullptr ? sound.channelCount()->value() : 0;
    if (rate == nullptr || rate->denominator() <= 0 || rate->numerator() <= 0 || channels == 0 ||
        channels > MOST_CHANNELS)
        return std::nullopt;

    unsigned const bits = storedBits(sound, channels);
    if (bits == 0 || bits > 32)
        return std::nullopt;

    SoundFormat format;
    format.samplesPerSecond = static_cast<unsigned>(rate->numerator() / rate->denominator());
    format.bitsPerSample = static_cast<unsigned short>(bits);
    format.channels = static_cast<unsigned short>(channels);
    return format;
}

/// D-10 and DV have sound in other forms.
bool mayHoldWave(Types::UniversalLabel const * container, GenericSoundEssenceDescriptor const & sound)
{
    RP224UniversalLabels::Mapping const mapping = containerInfo(container).mapping;
    return mapping == RP224UniversalLabels::AES3 || mapping == RP224UniversalLabels::BROADCAST_WAVE ||
           (mapping == RP224UniversalLabels::UNKNOWN &&
            dynamic_cast<WAVEAudioEssenceDescriptor const *>(&sound) != nullptr);
}

}

RP224UniversalLabels::EssenceContainerInfo containerInfo(Types::UniversalLabel const * container)
{
    try
    {
        if (container != nullptr)
            return RP224UniversalLabels::essenceContainerInfo(*container);
    }
    catch (Exceptions::InvalidValue const &)
    {
        // Its way of wrapping isn't one that the mapping has.
    }
    return {RP224UniversalLabels::UNKNOWN, RP224UniversalLabels::NEITHER};
}

EssenceForm pictureForm(Types::UniversalLabel const * container, FileDescriptor const * descriptor)
{
    // Without start codes between them they are no stream.
    unsigned char const mapping = container != nullptr ? mappingByte(*container) : 0;
    if (mapping == AVC_NAL_UNITS || mapping == HEVC_NAL_UNITS)
        return EssenceForm::OTHER;

    auto const * const picture = dynamic_cast<GenericPictureEssenceDescriptor const *>(descriptor);
    Types::UniversalLabel const * const coding = picture != nullptr ? picture->pictureEssenceCoding() : nullptr;
    if (coding != nullptr)
        if (std::optional<EssenceForm> const form = formOfCoding(*coding))
            return *form;
    return container != nullptr ? formOfContainer(*container) : EssenceForm::OTHER;
}

std::optional<SoundFormat> waveFormat(Types::UniversalLabel const * container, FileDescriptor const * descriptor)
{
    auto const * const sound = dynamic_cast<GenericSoundEssenceDescriptor const *>(descriptor);
    if (sound == nullptr || !mayHoldWave(container, *sound) || !isUncompressed(*sound))
        return std::nullopt;
    return formatOf(*sound);
}

bool isEightChannelSound(Types::UniversalLabel const * container, unsigned trackNumber)
{
    return trackNumber == 0 ? containerInfo(container).mapping == RP224UniversalLabels::D10
                            : (trackNumber & ITEM_AND_TYPE) == EIGHT_CHANNEL_ELEMENT;
}

SoundFormat eightChannelFormat(FileDescriptor const * descriptor)
{
    SoundFormat format;
    format.samplesPerSecond = 48000;
    format.bitsPerSample = 24;
    format.channels = MOST_CHANNELS;
    auto const * const sound = dynamic_cast<GenericSoundEssenceDescriptor const *>(descriptor);
    std::optional<SoundFormat> const claimed = sound != nullptr ? formatOf(*sound) : std::nullopt;
    if (claimed)
        format.samplesPerSecond = claimed->samplesPerSecond;
    if (claimed && claimed->bitsPerSample <= 16)
        format.bitsPerSample = 16;
    if (claimed && claimed->channels <= MOST_CHANNELS)
        format.channels = claimed->channels;
    return format;
}

}}
