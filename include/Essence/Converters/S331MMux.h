#pragma once

#include "DataIO/SliceSource.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace Essence { namespace Converters {

/// Makes the eight-channel elements of SMPTE 331M from streams of sound, an
/// element for each edit unit (layout in Essence/AES3/S331M.h).
///
/// Streams take the channels in the order in which they are added, from
/// channel 0 on; those behind the eighth channel are left out. Channels that
/// no stream takes, and those of a stream that ends within an element, carry
/// silence with V set. All streams have the same number of bits, and 48000 Hz
/// is assumed.
///
/// Nothing is read from the streams before the first `read`, `skip` or
/// `endOfStream`. That call sets up the multiplexer and therefore throws
///
/// - Exceptions::OperationNotAllowed for mono streams that don't come in
///   equal pairs, and for streams that reach over the eighth channel;
/// - Exceptions::InvalidFormat for a wave stream that is none, and for streams
///   of differing bits;
/// - Exceptions::InvalidValue for more than 24 bits or less than 8 of a
///   sample, and for a sampling frequency that AES3 has no code for;
/// - Exceptions::NotEnoughData for an AES3 stream without a header.
class VANTRY_EXPORT S331MMux : public DataIO::SliceSource
{
public:
    static constexpr unsigned int MAXIMUM_NUMBER_OF_SOURCES = 8;

    /// \throws Exceptions::InvalidValue for an edit rate that gives an element
    ///         no sample, or more than 65535; Exceptions::BadAlloc.
    explicit S331MMux(Templates::Rational<int> const & editRate);
    S331MMux(S331MMux const &) = delete;
    S331MMux & operator=(S331MMux const &) = delete;
    ~S331MMux() override;

    /// Adds a stream of AES3 packets (SMPTE 302M) of 16 or 24 bits, which
    /// brings its channels, and the F, C, U and V bits of each.
    ///
    /// As the other two it throws Exceptions::OperationNotAllowed "Trying do
    /// add more sources than allowed in S331Mux." for the ninth source, and
    /// where the multiplexer is set up already.
    void addAES3Stream(Templates::SharedPtr<DataIO::SliceSource> stream);

    /// Adds a wave stream, which says itself what PCM it has.
    void addWaveStream(Templates::SharedPtr<DataIO::SliceSource> stream);

    /// Adds a stream of raw PCM, little-endian, `blockAlign` bytes for a sample
    /// of all its `channels`. A sample of one channel takes up `bitsPerSample`
    /// bits, of which the low `validBitsPerSample` are taken over:
    /// left-justified sound says its `bitsPerSample` there too. A stream of one
    /// channel is joined with the next, which is then of one channel too.
    void addPCMStream(Templates::SharedPtr<DataIO::SliceSource> stream, unsigned short bitsPerSample,
                      unsigned short validBitsPerSample, unsigned short channels, unsigned int samplingFrequency,
                      unsigned short blockAlign);

    /// The next element, whatever `howMuch` says; empty at the end of the
    /// stream.
    ///
    /// \throws what a set-up throws; Exceptions::IOError when a medium fails;
    ///         Exceptions::InvalidFormat for an AES3 packet that has no whole
    ///         number of samples; Exceptions::NotImplemented for AES3 of 20
    ///         bits.
    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch) override;

    /// How many bytes were read and skipped.
    UInt64 absoluteOffset() const override;

    /// Whether one of the streams has ended. Without streams there is silence
    /// without an end.
    bool endOfStream() const override;

    /// Passes over one element, whatever `howMuch` says, and returns its size.
    UInt64 skip(UInt64 howMuch) override;

private:
    class Impl;
    Impl * impl_;
};

}}}
