// Reads the packs of real files and expects to write the same bytes.

#include "Exceptions/BaseException.h"
#include "Packs/PartitionPack.h"
#include "Packs/PrimerPack.h"
#include "Packs/RandomIndexPack.h"
#include "Platform/Text.h"
#include "support/BytesPacket.h"
#include "support/BytesSink.h"
#include "support/FFmpeg.h"
#include "support/Samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Vantry { namespace Packs { namespace {

using Tests::Bytes;
using Tests::BytesPacket;
using Tests::FFmpegFile;
using Tests::hex;
using Tests::serialized;

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

Bytes read(std::filesystem::path const & path)
{
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

// Why files have packs that aren't written as they were.
std::map<std::string, std::string> const REASONS = {
    {"F001_sample.mxf", UNORDERED},
    {"F044_timecode.mxf", UNORDERED},
    {"F048_8c0c4ebc_mono_sine.mxf", UNORDERED},
    {"F068_allMdTypes.mrx", UNORDERED},
    {"F072_rexy_sunbathe_mrx.mxf", UNORDERED},
    {"F081_AUDIO.null_terminated_strings.mxf", UNORDERED},
    {"F164_fmt-200-signature-id-791.mxf", "The key defines an invalid partition status"},
    {"F189_audio1.mxf", UNORDERED},
    {"F191_class14.mxf", UNORDERED},
    {"F193_indirect.mxf", UNORDERED},
    {"F194_open-incomplete-header.mxf", UNORDERED},
    {"F196_video1.mxf", UNORDERED},
    {"F217_test03-imf-mm-api-wnoise_a0.mxf", UNORDERED},
    {"F255_70c921db-4257-4858-aab1-8dbdd0fa039a.mxf", UNORDERED},
    {"F281_ECL29-SINGLE-CPL-CRYPT_TST_S_EN-EN_UK-U_51_2K_DI_20180103_ECL_IOP_OV_audio_01.mxf", UNORDERED},
};

TEST(RealPacks, OfManyMakersAreWrittenAsTheyWere)
{
    VANTRY_NEEDS_SAMPLES();

    for (std::filesystem::path const & path : Tests::samples())
    {
        std::vector<std::string> const found = faults(read(path));
        EXPECT_FALSE(found.empty()) << path;

        std::set<std::string> reasons(found.begin(), found.end());
        reasons.erase("");
        auto const reason = REASONS.find(path.filename());
        std::set<std::string> const wanted =
            reason == REASONS.end() ? std::set<std::string>() : std::set<std::string>{reason->second};
        EXPECT_EQ(reasons, wanted) << path;
    }
}

TEST(RealPacks, OfFFmpegAreWrittenAsTheyWere)
{
    VANTRY_NEEDS_FFMPEG();

    std::string const tone = " -f lavfi -i sine=sample_rate=48000:duration=0.2";
    std::string const picture = " -f lavfi -i testsrc=rate=25:duration=0.2:size=";
    std::string const d10 =
        " -c:v mpeg2video -pix_fmt yuv422p -g 1 -intra_vlc 1 -non_linear_quant 1 -qmin 1 -qmax 12 -dc 10"
        " -b:v 30000k -minrate 30000k -maxrate 30000k -bufsize 1200000"
        " -rc_init_occupancy 1200000 -c:a pcm_s16le";
    struct Case
    {
        char const * name;
        std::string arguments;
        std::vector<std::string> faults; // of header, primer, body, footer, random index
    };
    Case const cases[] = {
        {"OP1a", picture + "320x240" + tone + " -c:v mpeg2video -c:a pcm_s16le -f mxf", {"", UNORDERED, "", "", ""}},
        {"OP-Atom", tone + " -c:a pcm_s16le -f mxf_opatom", {"", UNORDERED, "", "", ""}},
        {"D-10", picture + "720x608" + tone + d10 + " -f mxf_d10", {"", UNORDERED, "", ""}},
    };
    for (Case const & c : cases)
        EXPECT_EQ(faults(FFmpegFile(c.arguments).content()), c.faults) << c.name;
}

}}}
