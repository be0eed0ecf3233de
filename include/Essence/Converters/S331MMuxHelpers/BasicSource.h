#pragma once

#include "Essence/AES3/S331M.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace Essence { namespace Converters { namespace S331MMuxHelpers {

/// One input of the multiplexer, as it fills its channels of the elements.
class VANTRY_EXPORT BasicSource
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~BasicSource();

    /// How many channels the input has, and the bits of a sample; 0 bits go
    /// with any others. Called once, ahead of all else.
    virtual void info(unsigned char & channels, unsigned char & bits) = 0;

    /// Gets `count` samples ready, or as many as there still are.
    virtual void prepare(unsigned short count) = 0;

    /// Whether there is nothing more.
    virtual bool endOfStream() const = 0;

    /// Puts the words of one sample to `out`, in pairs, and returns the
    /// position behind them. Silence where no sample is ready.
    virtual unsigned char * writeSample(unsigned char * out);

    /// Puts the words of `count` samples to `out`, those of each 32 bytes
    /// behind those of the one before, and returns the position behind the
    /// words of the first.
    virtual unsigned char * writeSamples(unsigned char * out, unsigned short count) = 0;

protected:
    /// Fills channels from `firstChannel` on.
    explicit BasicSource(unsigned char firstChannel) noexcept;
    BasicSource(BasicSource const &) = delete;
    BasicSource & operator=(BasicSource const &) = delete;

    unsigned char firstChannel() const noexcept { return firstChannel_; }
    unsigned int pairCount() const noexcept { return pairCount_; }
    void pairCount(unsigned int count) noexcept { pairCount_ = count; }

    /// The channel numbers of a pair, in two words.
    UInt64 channelsOfPair(unsigned int pair) const noexcept
    {
        using namespace AES3::S331M;
        UInt32 const first = firstChannel_ + 2 * pair;
        return bothWords(first & CHANNEL_MASK, (first + 1) & CHANNEL_MASK);
    }

    /// Bytes of one sample's words.
    UInt64 wordsSize() const noexcept;

    /// Puts the words of `count` samples of silence, as `writeSamples` would.
    void writeSilence(unsigned char * out, UInt64 count) const noexcept;

private:
    unsigned char firstChannel_;
    unsigned int pairCount_;
};

}}}}
