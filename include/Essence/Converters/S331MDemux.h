#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/Rational.h"

namespace Vantry {
namespace KLV {
class Value;
}

namespace Essence { namespace Converters {

/// Takes the eight-channel elements of SMPTE 331M apart (layout in
/// Essence/AES3/S331M.h) and hands their sound to a derived class as streams
/// of some channels each: stream 0 has the first channels, stream 1 the next.
class VANTRY_EXPORT S331MDemux
{
public:
    VANTRY_CLASS_ALLOCATION

    /// What the first element tells of `stream`; called for all streams ahead
    /// of the first `streamData`. The numbers come from the channel status, in
    /// hertz and in bits of a sample, and are 0 where that is missing or not
    /// whole.
    virtual void streamInfo(unsigned int stream, Templates::Rational<int> const & samplingFrequency,
                            short sourceWordLength) = 0;

    /// The sound of `stream` in one element: 24-bit samples of 3 bytes, the
    /// low one first, channel by channel. Not called for an element without
    /// samples. What is left unread is dropped.
    virtual void streamData(unsigned int stream, KLV::Value & samples) = 0;

    virtual ~S331MDemux();

    /// `channelsPerStream` is 1, 2, 4 or 8, which gives 8, 4, 2 streams or 1.
    ///
    /// \throws Exceptions::InvalidValue for any other; Exceptions::BadAlloc.
    explicit S331MDemux(unsigned char channelsPerStream);
    S331MDemux(S331MDemux const &) = delete;
    S331MDemux & operator=(S331MDemux const &) = delete;

    /// Takes all of `value`. Elements may come one in a value, several, or cut
    /// anywhere: what is not whole waits for the next call.
    ///
    /// \throws Exceptions::InvalidFormat "Framing bit set during a frame.";
    ///         Exceptions::IOError when the medium fails; what `streamInfo` and
    ///         `streamData` throw. The element is then lost, and the next value
    ///         is taken to begin with an element.
    void handleData(KLV::Value & value);

    /// Whether sound is handed out as it stands in the words though V is set,
    /// or the channel isn't valid; otherwise such samples are 00 00 80. False
    /// at first.
    bool ignoreValidChannelFlag() const;
    void ignoreValidChannelFlag(bool ignore);

    /// The channel valid flags of the first element, bit n for channel n; 0
    /// until `streamInfo` is called.
    unsigned char channelValidFlags() const;

private:
    class Impl;
    Impl * impl_;
};

}}
}
