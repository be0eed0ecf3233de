// Reads the index table segments of real files and expects to write the same
// bytes.

#include "Exceptions/BaseException.h"
#include "IndexTables/IndexTable.h"
#include "IndexTables/IndexTableSegmentWithGOPInfo.h"
#include "support/BytesPacket.h"
#include "support/BytesSink.h"
#include "support/FFmpeg.h"
#include "support/Samples.h"

#include <set>

namespace Vantry { namespace IndexTables { namespace {

using Tests::Bytes;
using Tests::hex;

Bytes const KEY = hex("06 0E 2B 34 02 53 01 01 0D 01 02 01 01 10 01 00");

// Calls `action` with the packet of each segment, and what follows it. Keys
// are looked for byte by byte: essence doesn't hold them by chance.
template <class Action>
void forEachSegment(Bytes const & file, Action action)
{
    auto const next = [&](Bytes::const_iterator from)
    {
        return std::search(from, file.end(), KEY.begin(), KEY.end());
    };
    for (auto key = next(file.begin()); key != file.end(); key = next(key + 1))
        action(Bytes(key, file.end()));
}

TEST(RealSegments, AreWrittenAsTheyWere)
{
    VANTRY_NEEDS_SAMPLES();

    // These repeat the instance identifier.
    std::set<std::string> const repeated = {"F189", "F196"};
    unsigned int count = 0;
    for (std::filesystem::path const & path : Tests::samples())
        forEachSegment(Tests::readFile(path),
                       [&](Bytes const & bytes)
                       {
                           SCOPED_TRACE(path);
                           Tests::BytesPacket packet(bytes);
                           Bytes const written = Tests::serialized(IndexTableSegment(*packet, nullptr));
                           if (repeated.count(path.filename().string().substr(0, 4)) == 0)
                               EXPECT_EQ(written, bytes.first((*packet).klvLength()));
                           else
                               EXPECT_EQ(written.size() + 20, (*packet).klvLength());
                           ++count;
                       });
    EXPECT_EQ(count, 18u);
}

// MPEG-2 in long groups, and edit units of constant size.
TEST(RealSegments, OfFFmpegCoverTheWholeFile)
{
    VANTRY_NEEDS_FFMPEG();

    for (std::string const & kind : Tests::ffmpegKinds())
    {
        SCOPED_TRACE(kind);
        IndexTable table(2, 1);
        forEachSegment(Tests::FFmpegFile(kind).content(),
                       [&](Bytes const & bytes)
                       {
                           Tests::BytesPacket packet(bytes);
                           Templates::auto_ptr<IndexTableSegmentWithGOPInfo> segment(
                               new IndexTableSegmentWithGOPInfo(*packet, nullptr));
                           EXPECT_EQ(Tests::serialized(*segment), bytes.first((*packet).klvLength()));
                           table.add(segment, false);
                       });
        EXPECT_GE(table.size(), 1u);
        EXPECT_NE(table.find(0), nullptr);
    }
}

}}}
