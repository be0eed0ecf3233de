#pragma once

#include "DataIO/SliceSource.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace DataIO {
class Chain;
}

namespace Essence { namespace AES3 {
struct AES3Info;

namespace S302M {

/// Turns a stream of SMPTE 302M packets into PCM: little-endian samples of 2
/// bytes at 16 bits, otherwise of 3 with the sound in the high bits, channel
/// by channel. All packets have the channels and bits of the first.
///
///     header size x 4, payload                   each packet
///     pair of channels 0 and 1, pair of 2 and 3  each sample of a payload
///
/// A packet without payload gives nothing. One that is cut off gives its whole
/// samples, but for the first, which has to be whole.
class VANTRY_EXPORT Source : public DataIO::SliceSource
{
public:
    /// Reads nothing yet.
    ///
    /// \throws Exceptions::BadAlloc.
    explicit Source(Templates::SharedPtr<DataIO::SliceSource> source);
    Source(Source const &) = delete;
    Source & operator=(Source const &) = delete;
    ~Source() override;

    /// Reads the first packet, once, and tells whether it is one. False also
    /// where it has no payload or is cut off; the next call then tries the
    /// next packet.
    ///
    /// \throws Exceptions::IOError when the medium fails.
    bool preload();

    /// Bytes of PCM, as many as come together, whatever `howMuch` says. Empty
    /// for a packet without payload, behind the last one, and for a stream
    /// that is not of SMPTE 302M, which is passed over.
    ///
    /// \throws Exceptions::InvalidFormat "Framing bit set during a frame." in
    ///         a packet behind the first; Exceptions::IOError when the medium
    ///         fails.
    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch) override;

    /// How many bytes of PCM were read and skipped.
    UInt64 absoluteOffset() const override;

    bool endOfStream() const override;

    /// Passes over bytes of PCM, and decodes them.
    UInt64 skip(UInt64 howMuch) override;

    /// Appends up to `count` samples of all channels to `destination`, and
    /// returns how many there were.
    UInt64 readSamples(UInt64 count, DataIO::Chain & destination);

    /// What the stream carries, as the first packet tells. Where that doesn't
    /// hold a whole channel status block, the sound counts as of 48000 Hz and
    /// nothing else is indicated.
    ///
    /// \throws Exceptions::InvalidFormat "Trying to get info for a file with
    ///         an invalid format" where `preload` is false.
    AES3Info const & info();

private:
    class Impl;
    Impl * impl_;
};

}
}}
}
