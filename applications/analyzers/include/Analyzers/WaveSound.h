#pragma once

#include "DataIO/SliceSource.h"
#include "Templates/SharedPtr.h"

#include <memory>

namespace Vantry { namespace Analyzers {

/// The samples of a wave stream of PCM as a stream of their own, uncopied,
/// and silence behind them without an end: sound for as long as there are
/// pictures.
class WaveSound : public DataIO::SliceSource
{
public:
    /// \param wave  a wave stream, from its start
    explicit WaveSound(Templates::SharedPtr<DataIO::SliceSource> wave);
    ~WaveSound() override;

    /// Reads up to the samples.
    ///
    /// \return false when the stream is no wave
    /// \throws Exceptions::InvalidFormat for a wave of anything but PCM with 1
    ///         to 32 bits, or without sound.
    bool preload();

    // What it is, once preloaded.
    unsigned int samplesPerSecond() const;
    unsigned int channels() const;
    unsigned int bytesPerSample() const; ///< of one channel

    /// Whether there are samples that weren't taken.
    bool isLeft() const;

    /// Whole samples of all channels, about `howMuch` bytes of them.
    ///
    /// \throws Exceptions::InvalidFormat when the stream ends ahead of where
    ///         its header says.
    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch) override;

    UInt64 absoluteOffset() const override;
    bool endOfStream() const override;
    UInt64 skip(UInt64 howMuch) override;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}}
