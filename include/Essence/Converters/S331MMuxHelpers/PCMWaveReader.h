#pragma once

#include "Essence/Wave/FormatChunk.h"
#include "Essence/Wave/WaveReader.h"

namespace Vantry { namespace Essence { namespace Converters { namespace S331MMuxHelpers {

/// A wave reader that knows the format of the PCM in it, once it is
/// preloaded. Numbers are 0 until then.
class VANTRY_EXPORT PCMWaveReader : public Wave::WaveReader
{
public:
    explicit PCMWaveReader(Templates::SharedPtr<DataIO::SliceSource> source);
    ~PCMWaveReader() override;

    /// Reads the format.
    ///
    /// \throws Exceptions::InvalidFormat for a chunk that is too short, or
    ///         "Wave file does not contain PCM essence";
    ///         Exceptions::NotEnoughData where the stream ends in it.
    void handleFormatChunk(UInt64 length) override;

    /// Reads up to the format; false for a stream that is no wave, or whose
    /// format doesn't come before the data.
    bool preload() override;

    /// A chunk of format tag 1 or 6, of 16 bytes or more.
    virtual void handleFormatPCMChunk(Templates::auto_ptr<DataIO::Slice> formatChunk);

    /// A chunk of format tag 0xFFFE, of 40 bytes or more and of PCM.
    virtual void handleFormatExtensibleChunk(Templates::auto_ptr<DataIO::Slice> formatChunk);

    /// A chunk of any other format tag.
    ///
    /// \throws Exceptions::InvalidFormat.
    virtual void handleUnknownFormatChunk(unsigned short formatTag, Templates::auto_ptr<DataIO::Slice> formatChunk);

    /// Takes the numbers over.
    virtual void decodePCMFormat(Wave::FormatPCMChunk const & format);

    /// Bits that a sample takes up.
    unsigned short bitsPerSample() const noexcept { return format_.bitsPerSample; }

    /// Bits of a sample that carry sound.
    unsigned short validBitsPerSample() const noexcept { return validBitsPerSample_; }

    unsigned short numberOfChannels() const noexcept { return format_.channels; }

    /// Bytes of one sample of all channels.
    unsigned short numberBlockAlign() const noexcept { return format_.blockAlign; }

    unsigned int samplesPerSecond() const noexcept { return format_.samplesPerSecond; }
    unsigned int avgBytesPerSecond() const noexcept { return format_.averageBytesPerSecond; }

private:
    Wave::FormatPCMChunk format_;
    unsigned short validBitsPerSample_;
    bool formatIsKnown_;
};

}}}}
