#pragma once

#include "Essence/AES3/ChannelStatusLoader.h"
#include "Platform/Allocation.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/auto_ptr.h"

namespace Vantry { namespace Essence { namespace AES3 { namespace S302M {

/// Decodes packed samples of a number of bits.
class SampleReaderBase
{
public:
    VANTRY_CLASS_ALLOCATION

    /// The reader for 16, 20 or 24 bits; null for others.
    static Templates::auto_ptr<SampleReaderBase> create(unsigned int bits, unsigned int pairsPerGroup);

    virtual ~SampleReaderBase();

    /// Turns pairs into PCM.
    virtual void decode(unsigned char const * packed, UInt64 pairs, unsigned char * pcm) const noexcept = 0;

    /// Feeds the channel status bits of each group to the loaders, of which
    /// there is one for each channel.
    ///
    /// \throws Exceptions::InvalidFormat where a block begins within a block.
    virtual void loadChannelStatus(unsigned char const * packed, UInt64 groups,
                                   Templates::vector<ChannelStatusLoader> & loaders) const = 0;

    unsigned int pairsPerGroup() const noexcept { return pairsPerGroup_; }

    /// Packed bytes of one sample of all channels.
    unsigned int groupSize() const noexcept { return groupSize_; }

protected:
    SampleReaderBase(unsigned int pairsPerGroup, unsigned int pairSize) noexcept :
        pairsPerGroup_(pairsPerGroup), groupSize_(pairsPerGroup * pairSize)
    {
    }

private:
    unsigned int pairsPerGroup_;
    unsigned int groupSize_;
};

}}}}
