// Reads the packs of real files and expects to write the same bytes.

#include "Exceptions/BaseException.h"
#include "Packs/PartitionPack.h"
#include "Packs/PrimerPack.h"
#include "Packs/RandomIndexPack.h"
#include "support/BytesPacket.h"
#include "support/BytesSink.h"
#include "support/FFmpeg.h"
#include "support/Samples.h"

#include <set>

namespace Vantry { namespace Packs { namespace {

using namespace Tests;

// What the keys of all packs begin with. They are looked for byte by byte:
// essence doesn't hold it by chance.
Bytes const COMMON_KEY_BYTES = hex("06 0E 2B 34 02 05 01 01 0D 01 02 01 01");

std::vector<Bytes> packetsOf(Bytes const & file)
{
    std::vector<Bytes> packets;
    auto const begins = [&](Bytes::const_iterator from)
    {
        return std::search(from, file.end(), COMMON_KEY_BYTES.begin(), COMMON_KEY_BYTES.end());
    };

    for (auto key = begins(file.begin()); key != file.end(); key = begins(key + 1))
        packets.emplace_back(key, file.end());
    return packets;
}

char const * const UNORDERED = "a primer whose entries are out of order, which it can't keep";

// The entries of a primer packet in the order of their tags.
Bytes ordered(Bytes primer, std::size_t firstEntry)
{
    std::size_t const entrySize = 18;
    std::vector<Bytes> entries;
    for (auto entry = primer.begin() + firstEntry; entry != primer.end(); entry += entrySize)
        entries.emplace_back(entry, entry + entrySize);
    std::sort(entries.begin(), entries.end());

    primer.resize(firstEntry);
    for (Bytes const & entry : entries)
        primer += entry;
    return primer;
}

template <class Pack>
std::string rewrite(Bytes const & original, KLV::Packet & packet)
{
    std::size_t const valueOffset = 16 + packet.berLength();
    Bytes const written = serialized(Pack(packet));
    if (written == original)
        return "";
    return isPrimerPack(packet.key()) && written == ordered(original, valueOffset + 8) ? UNORDERED : "other bytes";
}

// What prevents the pack at the start of the stream from being written as it
// was, or nothing.
std::string fault(Bytes const & stream)
{
    BytesPacket packet(stream);
    try
    {
        Bytes const original = stream.first((*packet).klvLength());
        if (isPartitionPack((*packet).key()))
            return rewrite<PartitionPack>(original, *packet);
        if (isPrimerPack((*packet).key()))
            return rewrite<PrimerPack>(original, *packet);
        if (isRandomIndexPack((*packet).key()))
            return rewrite<RandomIndexPack>(original, *packet);
        return "no pack";
    }
    catch (Exceptions::BaseException const & failure)
    {
        return Platform::wstringToString(failure.message()).c_str();
    }
}

std::vector<std::string> faults(Bytes const & file)
{
    std::vector<std::string> result;
    for (Bytes const & packet : packetsOf(file))
        result.push_back(fault(packet));
    return result;
}

// Why files, by the number that their names begin with, have packs that aren't
// written as they were.
std::string reasonFor(std::string const & number)
{
    static std::set<std::string> const unordered = {"F001", "F044", "F048", "F068", "F072", "F081", "F189",
                                                    "F191", "F193", "F194", "F196", "F217", "F255", "F281"};
    if (number == "F164")
        return "The key defines an invalid partition status"; // a bare key and zeros
    return unordered.count(number) != 0 ? UNORDERED : "";
}

TEST(RealPacks, OfManyMakersAreWrittenAsTheyWere)
{
    VANTRY_NEEDS_SAMPLES();

    for (std::filesystem::path const & path : Tests::samples())
    {
        std::vector<std::string> const found = faults(Tests::readFile(path));
        EXPECT_FALSE(found.empty()) << path;

        std::set<std::string> const reasons(found.begin(), found.end());
        EXPECT_EQ(*reasons.rbegin(), reasonFor(path.filename().string().substr(0, 4))) << path;
        EXPECT_LE(reasons.size(), 2u) << path;
    }
}

TEST(RealPacks, OfFFmpegAreWrittenAsTheyWere)
{
    VANTRY_NEEDS_FFMPEG();

    for (std::string const & kind : Tests::ffmpegKinds())
    {
        // Header partition, primer, perhaps a body partition, footer partition, random index
        std::vector<std::string> const found = faults(FFmpegFile(kind).content());
        ASSERT_GE(found.size(), 4u) << kind;
        std::vector<std::string> wanted(found.size());
        wanted[1] = UNORDERED;
        EXPECT_EQ(found, wanted) << kind;
    }
}

}}}
