#pragma once

#include "DataIO/SliceSource.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace Essence { namespace Converters {

/// What the header of a wave stream says.
struct WaveHeaderStructure
{
    /// Bits of a sample that carry sound, at most 32.
    unsigned short bitsPerSample = 0;

    unsigned short channels = 0;

    /// Bytes of one sample of all channels.
    unsigned short blockAlign = 0;

    unsigned int samplesPerSecond = 0;
    unsigned int averageBytesPerSecond = 0;

    /// Stored for samples of up to 16 bits; wider ones make the header an
    /// extensible one.
    unsigned short formatTag = 0;
};

/// Puts the header of a wave stream of unknown length in front of raw PCM.
class VANTRY_EXPORT PCMToWave : public DataIO::SliceSource
{
public:
    /// \throws Exceptions::InvalidValue "Number of bits per sample is not
    ///         supported" for more than 32; Exceptions::BadAlloc.
    PCMToWave(Templates::SharedPtr<DataIO::SliceSource> source, WaveHeaderStructure const & structure);
    PCMToWave(PCMToWave const &) = delete;
    PCMToWave & operator=(PCMToWave const &) = delete;
    ~PCMToWave() override;

    /// First the header alone, whatever `howMuch` says; then what the source
    /// gives.
    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch) override;

    /// The offset of the source, plus the size of the header.
    UInt64 absoluteOffset() const override;

    bool endOfStream() const override;
    UInt64 skip(UInt64 howMuch) override;

private:
    Templates::SharedPtr<DataIO::SliceSource> source_;
    Templates::auto_ptr<DataIO::Slice> header_;
    UInt64 headerSize_;
};

}}}
