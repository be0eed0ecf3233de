#include "Essence/AES3/S302M/SampleReader.h"

#include "Essence/AES3/S302M/PackedPairs.h"

namespace Vantry { namespace Essence { namespace AES3 { namespace S302M {

namespace {

template <unsigned int BITS>
class SampleReader final : public SampleReaderBase
{
public:
    explicit SampleReader(unsigned int pairsPerGroup) noexcept : SampleReaderBase(pairsPerGroup, Pair::SIZE) {}

    void decode(unsigned char const * packed, UInt64 pairs, unsigned char * pcm) const noexcept override
    {
        unpackPairs<BITS>(packed, pairs,
                          [&pcm](UInt64 pair)
                          {
                              UInt64 const samples =
                                  UInt64(Pair::sampleB(pair)) << 8 * Pair::PCM_SIZE | Pair::sampleA(pair);
                              putNumber<PCM_PAIR_SIZE>(samples << Pair::PCM_SHIFT, pcm);
                              pcm += PCM_PAIR_SIZE;
                          });
    }

    void loadChannelStatus(unsigned char const * packed, UInt64 groups,
                           Templates::vector<ChannelStatusLoader> & loaders) const override
    {
        for (unsigned int pair = 0; pair < pairsPerGroup(); ++pair)
            loadPair(packed + pair * Pair::SIZE, groups, loaders[2 * pair], loaders[2 * pair + 1]);
    }

private:
    using Pair = SamplePair<BITS>;

    static constexpr unsigned int PCM_PAIR_SIZE = 2 * Pair::PCM_SIZE;

    // Flags where they are packed, in the byte of A's and in the last one.
    static constexpr unsigned int FRAMING_A = 1 << Pair::FLAGS_A_SHIFT;
    static constexpr unsigned int STATUS_A = 2 << Pair::FLAGS_A_SHIFT;
    static constexpr unsigned int STATUS_B = 2;

    // The framing bit of A is that of B too, so that both begin and are
    // complete with the same groups, and no others need be looked at.
    void loadPair(unsigned char const * packed, UInt64 groups, ChannelStatusLoader & a, ChannelStatusLoader & b) const
    {
        UInt64 group = a.isRecording() ? 0 : firstFramed(packed, groups);
        for (; group < groups && !a.isComplete(); ++group)
        {
            unsigned char const * const pair = packed + group * groupSize();
            bool const framing = (pair[Pair::FLAGS_A_BYTE] & FRAMING_A) != 0;
            a.push(framing, (pair[Pair::FLAGS_A_BYTE] & STATUS_A) != 0);
            b.push(framing, (pair[Pair::SIZE - 1] & STATUS_B) != 0);
        }
    }

    UInt64 firstFramed(unsigned char const * packed, UInt64 groups) const noexcept
    {
        UInt64 const distance = groupSize();
        unsigned char const * flags = packed + Pair::FLAGS_A_BYTE;
        UInt64 group = 0;
        for (; group < groups && (*flags & FRAMING_A) == 0; ++group)
            flags += distance;
        return group;
    }
};

}

SampleReaderBase::~SampleReaderBase() = default;

Templates::auto_ptr<SampleReaderBase> SampleReaderBase::create(unsigned int bits, unsigned int pairsPerGroup)
{
    using Pointer = Templates::auto_ptr<SampleReaderBase>;
    switch (bits)
    {
    case 16:
        return Pointer(new SampleReader<16>(pairsPerGroup));
    case 20:
        return Pointer(new SampleReader<20>(pairsPerGroup));
    case 24:
        return Pointer(new SampleReader<24>(pairsPerGroup));
    default:
        return Pointer();
    }
}

}}}}
