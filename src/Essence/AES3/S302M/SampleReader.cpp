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

    // The framing bit of A is that of B too, so that both are complete with
    // the same group, and the groups behind needn't be looked at.
    void loadPair(unsigned char const * packed, UInt64 groups, ChannelStatusLoader & a, ChannelStatusLoader & b) const
    {
        for (; groups > 0 && !a.isComplete(); --groups, packed += groupSize())
        {
            unsigned int const flagsA = packed[Pair::FLAGS_A_BYTE] >> Pair::FLAGS_A_SHIFT;
            bool const framing = (flagsA & 1) != 0;
            if (!framing && !a.isRecording())
                continue;

            a.push(framing, (flagsA & 2) != 0);
            b.push(framing, (packed[Pair::SIZE - 1] & 2) != 0);
        }
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
