#include "GenericContainer/IndexEntryBuilder.h"

#include "GenericContainer/GenericContainerIndexTableGenerator.h"
#include "IndexTables/IndexEntry.h"
#include "IndexTables/IndexTableSegment.h"
#include "KLV/KeyPredicates.h"
#include "support/BytesPacket.h"
#include "support/FFmpeg.h"
#include "support/Failure.h"

namespace Vantry { namespace GenericContainer { namespace {

using IndexTables::IndexEntry;
using Tests::Bytes;
using Seconds = Templates::Rational<Int64>;

// Keeps the entries.
class Entries : public GenericContainerIndexTableGenerator
{
public:
    void setupIndexSegments(IndexSegmentInfo const &) override {}
    void currentContentInfo(UInt64, UInt64) override {}
    unsigned char posTableCount() const override { return positions; }
    unsigned char sliceCount() const override { return slices; }
    void writeIndexEntry(IndexEntry const & entry) override { entries.push_back(entry); }
    void updateIndex() override {}
    unsigned int rawIndexByteCount(bool) const override { return 0; }
    void writeIndexSegments(bool, DataIO::DataSink &) override {}
    void indexSID(unsigned int) override {}
    void bodySID(unsigned int) override {}
    void indexStrategies(MXFIO::IndexTableGeneration, MXFIO::IndexTableGeneration,
                         MXFIO::IndexTableSegmentType) override
    {
    }
    MXFIO::IndexTableSegmentType indexSegmentType() const override { return type; }
    bool indexesAfterEndOfEssence() const override { return false; }

    unsigned char slices = 0;
    unsigned char positions = 0;
    MXFIO::IndexTableSegmentType type = MXFIO::INDEX_VARIABLE;
    std::vector<IndexEntry> entries;
};

// A picture of an elementary stream.
struct Picture
{
    char kind; // I, P or B
    bool isOfOpenGroup;
    std::size_t group;
    int reference; // its number in the group, in the order in which they are shown
    int shownAt;

    unsigned char flags() const
    {
        if (kind == 'I')
            return isOfOpenGroup ? IndexEntry::SEQUENCE_HEADER
                                 : IndexEntry::SEQUENCE_HEADER | IndexEntry::RANDOM_ACCESS;
        return kind == 'P' ? IndexEntry::FORWARD_PREDICTION
                           : IndexEntry::FORWARD_PREDICTION | IndexEntry::BACKWARD_PREDICTION;
    }
};

// Pictures in the order in which they are stored, from groups as they are
// shown: each B is stored behind the I or P that follows it. A group that
// starts with a B is open, unless "(" says otherwise.
std::vector<Picture> stored(std::vector<std::string> const & groups)
{
    std::vector<Picture> pictures;
    for (std::size_t group = 0; group < groups.size(); ++group)
    {
        bool const isClosedByWill = groups[group][0] == '(';
        std::string const shown = groups[group].substr(isClosedByWill ? 1 : 0);
        int const base = static_cast<int>(pictures.size());
        std::vector<Picture> waiting;
        for (std::size_t i = 0; i < shown.size(); ++i)
        {
            int const reference = static_cast<int>(i);
            Picture const picture = {shown[i], shown[0] == 'B' && !isClosedByWill, group, reference, base + reference};
            if (picture.kind == 'B')
            {
                waiting.push_back(picture);
                continue;
            }
            pictures.push_back(picture);
            pictures.insert(pictures.end(), waiting.begin(), waiting.end());
            waiting.clear();
        }
    }
    return pictures;
}

std::vector<IndexEntry> indexOf(std::vector<Picture> const & pictures, UInt64 firstCount)
{
    Entries generator;
    IndexEntryBuilder builder;
    builder.indexTableGenerator(&generator);
    for (std::size_t i = 0; i < pictures.size(); ++i)
    {
        builder.prepareNewEntry(i);
        builder.processAnalyzerIndexEntry(firstCount + i, true, pictures[i].flags(),
                                          static_cast<signed char>(pictures[i].reference));
        builder.processAnalyzerIndexEntry(firstCount + i, false, 0, 99); // sound beside it
        builder.appendIndexEntry();
    }
    return generator.entries;
}

TEST(IndexEntryBuilder, FindsShownPicturesAndKeyFrames)
{
    std::vector<std::vector<std::string>> const streams = {
        {"I", "I", "I"},
        {"IPPP", "IPP"},
        {"IBBPBBP", "IBBPBBP"},
        {"IBBPBBP", "BBIBBPBBP", "BBIBBP"},
        {"BBIBBPBBP", "BBIBBP", "IBPBP"},
        {"IBPBP", "BIBPBP", "BIPBBBP", "IPBP"},
        {"(BBIBBP", "BBIBBP", "(BIBP"},
        {"I" + std::string(300, 'P'), "BBIBBP"},
        {"IBBPBBPBBPBBP" + std::string(40, 'B') + "PBBP", "BBI"},
    };
    for (std::vector<std::string> const & groups : streams)
        for (UInt64 firstCount : {0, 1}) // as frames and as a clip
        {
            SCOPED_TRACE(testing::Message() << testing::PrintToString(groups) << firstCount);
            std::vector<Picture> const pictures = stored(groups);
            std::vector<IndexEntry> const index = indexOf(pictures, firstCount);
            std::vector<int> keyFrames;
            for (int i = 0; i < int(pictures.size()); ++i)
            {
                SCOPED_TRACE(i);
                Picture const & picture = pictures[i];
                if (picture.kind == 'I')
                    keyFrames.push_back(i);
                ASSERT_EQ(pictures.at(i + index[i].temporalOffset()).shownAt, i);

                bool const isLeading = picture.kind == 'B' && picture.isOfOpenGroup &&
                                       picture.shownAt < pictures[keyFrames.back()].shownAt;
                std::size_t const group = keyFrames.size() - (isLeading ? 2 : 1);
                int const keyFrame = isLeading && picture.group == 0 ? -1 : keyFrames.at(group);
                EXPECT_EQ(index[i].keyFrameOffset(), std::max(keyFrame - i, -128));
                EXPECT_EQ(index[i].flags(), keyFrame < 0 ? 0x3B : picture.flags());
            }
        }
}

// The pictures of an MPEG-2 stream in an MXF file of ffmpeg, by their headers
// (ISO 13818-2, 6.2.2.6 and 6.2.3).
void addPictures(Bytes const & essence, std::vector<Picture> & pictures)
{
    static unsigned char const GROUP_HEADER = 0xB8, PICTURE_HEADER = 0x00;
    bool isOpen = false;
    for (std::size_t i = 0; i + 8 <= essence.size(); ++i)
    {
        if (essence[i] != 0 || essence[i + 1] != 0 || essence[i + 2] != 1)
            continue;
        unsigned char const * const header = &essence[i + 4];
        if (essence[i + 3] == GROUP_HEADER)
            isOpen = (header[3] & 0x40) == 0;
        if (essence[i + 3] == PICTURE_HEADER)
            pictures.push_back({" IPB"[header[1] >> 3 & 7], isOpen, 0, header[0] << 2 | header[1] >> 6, 0});
    }
}

TEST(IndexEntryBuilder, AgreesWithFFmpeg)
{
    VANTRY_NEEDS_FFMPEG();

    for (char const * groups : {"-g 12 -bf 2", "-g 12 -bf 2 -flags +cgop -sc_threshold 1000000000", "-g 9 -bf 1",
                                "-g 1", "-g 15 -bf 0", "-g 200 -bf 3 -b_strategy 1 -sc_threshold -1000"})
    {
        SCOPED_TRACE(groups);
        Tests::FFmpegFile const file(std::string("-f lavfi -i testsrc2=s=160x120:r=25:d=2 -c:v mpeg2video ") + groups +
                                     " -f mxf");
        std::vector<Picture> pictures;
        std::vector<IndexEntry> theirs;
        Tests::BytesSource source(Tests::readFile(file.path()));
        KLV::Reader reader(source);
        for (UInt64 skipped = 0; !source.endOfStream();)
        {
            auto const packet = reader.nextKLV(skipped, 0);
            if (KLV::isIndexTableKlvSegment(packet->key()))
            {
                IndexTables::IndexTableSegment const segment(*packet, nullptr);
                for (unsigned int i = 0; i < segment.indexEntryCount(); ++i)
                    theirs.push_back(segment.indexEntry(i));
            }
            else if (KLV::isEssence(packet->key()))
            {
                Bytes essence(packet->value().remaining());
                packet->value().read(essence.data(), essence.size());
                addPictures(essence, pictures);
            }
        }

        std::vector<IndexEntry> const ours = indexOf(pictures, 0);
        ASSERT_EQ(ours.size(), 50u);
        ASSERT_EQ(theirs.size(), ours.size());
        for (std::size_t i = 0; i < ours.size(); ++i)
            EXPECT_EQ(ours[i].temporalOffset(), theirs[i].temporalOffset()) << i << pictures[i].kind;
    }
}

// Sound of 1920 samples at 48 kHz beside pictures at 29.97 Hz.
TEST(IndexEntryBuilder, TellsTheFirstSampleOfAnElement)
{
    Templates::Rational<int> const rate(30000, 1001);
    Seconds const before, target(2 * 1001, 30000), position(1920, 48000);
    struct Case
    {
        Seconds temporalOffset;
        Templates::Rational<int> expected;
    };
    Case const cases[] = {
        {before, {199, 30000}},          // 0.04 s less the one picture ahead
        {Seconds(1, 100), {499, 30000}}, // starts later
        {Seconds(1, 10), 0},             // not in this edit unit
    };
    for (Case const & c : cases)
    {
        Entries generator;
        generator.positions = 1;
        generator.slices = 1;
        IndexEntryBuilder builder;
        builder.indexTableGenerator(&generator);
        builder.prepareNewEntry(0);
        builder.processIndexEntryTemporalOffset(1, false, before, position, target, rate);
        builder.processAnalyzerIndexEntrySliceOffset(false, 0, 500);
        builder.processIndexEntryTemporalOffset(1, true, c.temporalOffset, position, target, rate);
        builder.processAnalyzerIndexEntrySliceOffset(false, 0, 1000); // of constant size, and yet a slice
        builder.processIndexEntryTemporalOffset(1, true, c.temporalOffset, position, target, rate); // one too many
        builder.appendIndexEntry();
        ASSERT_EQ(generator.entries[0].posTableCount(), 1u);
        EXPECT_EQ(generator.entries[0].posTable(0), c.expected);
        ASSERT_EQ(generator.entries[0].sliceOffsetCount(), 1u);
        EXPECT_EQ(generator.entries[0].sliceOffset(0), 1000u);

        builder.prepareNewEntry(0);
        EXPECT_FAILURE(
            InvalidValue, "Type size exceeded",
            builder.processIndexEntryTemporalOffset(1, true, Seconds(1, Int64(1) << 40), position, target, rate));
    }
}

TEST(IndexEntryBuilder, FollowsItsGenerator)
{
    Entries first, second;
    IndexEntryBuilder builder;
    for (Entries * generator : {static_cast<Entries *>(nullptr), &first, &second})
    {
        builder.prepareNewEntry(0);
        builder.indexTableGenerator(generator);
        builder.appendIndexEntry(); // prepared for another
        builder.prepareNewEntry(1);
        builder.appendIndexEntry();
    }
    EXPECT_EQ(first.entries.size(), 1u);
    EXPECT_EQ(second.entries.size(), 1u);
}

}}}
