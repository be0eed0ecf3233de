#pragma once

#include "DataIO/SliceSource.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace Essence { namespace Converters {

/// Interleaves PCM sources, sample by sample, into one stream of all their
/// channels: the block of the first source, that of the second, and so on.
/// The stream ends with the first source that does.
class VANTRY_EXPORT PCMAudioChannelMixer : public DataIO::SliceSource
{
public:
    /// \throws Exceptions::BadAlloc.
    PCMAudioChannelMixer();
    PCMAudioChannelMixer(PCMAudioChannelMixer const &) = delete;
    PCMAudioChannelMixer & operator=(PCMAudioChannelMixer const &) = delete;
    ~PCMAudioChannelMixer() override;

    /// Adds a source of `blockAlign` bytes for a sample of its `channels`, of
    /// which none are read yet. All sources have the bits and the sampling
    /// frequency, in hertz, of the first.
    ///
    /// \throws Exceptions::OperationNotAllowed "Different bits per sample
    ///         received" and "Different sampling frequency received";
    ///         Exceptions::InvalidValue for a block or a frequency of 0.
    void addSource(Templates::SharedPtr<DataIO::SliceSource> source, unsigned short bitsPerSample,
                   unsigned short validBitsPerSample, unsigned short channels, unsigned int samplingFrequency,
                   unsigned short blockAlign);

    /// How many sources there are.
    UInt64 size() const;

    /// As many seconds as there are sources, whatever `howMuch` says, fewer
    /// at the end; the last slice may end within a sample. Null at the end of
    /// the stream.
    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch) override;

    /// How many bytes were read.
    UInt64 absoluteOffset() const override;

    /// Whether a source had nothing more when it was read.
    bool endOfStream() const override;

    /// \throws Exceptions::NotImplemented.
    UInt64 skip(UInt64 howMuch) override;

private:
    class Source;
    class Impl;
    Impl * impl_;
};

}}}
