#pragma once

#include "DataIO/SliceSource.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace Essence { namespace Converters {

/// Turns a wave stream of 2, 4, 6 or 8 channels, at 16 or 24 bits, into
/// packets of SMPTE 302M without channel status.
///
/// Only the first two channels carry their sound over. The others are there
/// and silent.
///
/// Each read makes a packet, so who asks for few bytes gets small packets.
class VANTRY_EXPORT WaveToS302M : public DataIO::SliceSource
{
public:
    /// Reads nothing yet.
    ///
    /// \throws Exceptions::BadAlloc.
    explicit WaveToS302M(Templates::SharedPtr<DataIO::SliceSource> source);
    WaveToS302M(WaveToS302M const &) = delete;
    WaveToS302M & operator=(WaveToS302M const &) = delete;
    ~WaveToS302M() override;

    /// Goes to the data of the wave and tells whether that is PCM. False
    /// behind it.
    ///
    /// \throws Exceptions::InvalidFormat for a format chunk that is too short;
    ///         Exceptions::NotEnoughData where the stream ends in it;
    ///         Exceptions::IOError when the medium fails.
    bool preload();

    /// A packet of about `howMuch` bytes: at least one sample of all channels,
    /// at most what a packet holds. Empty behind the last whole sample.
    ///
    /// \throws Exceptions::InvalidFormat "Wave file contains invalid data"
    ///         where `preload` is false, and for channels or bits that
    ///         SMPTE 302M doesn't have; Exceptions::NotImplemented for 20
    ///         bits; Exceptions::IOError when the medium fails.
    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch) override;

    /// How many bytes of packets were read and skipped.
    UInt64 absoluteOffset() const override;

    bool endOfStream() const override;

    /// Passes over bytes of packets; what is left of the last one comes first
    /// in the next `read`.
    UInt64 skip(UInt64 howMuch) override;

private:
    class Impl;
    Impl * impl_;
};

}}}
