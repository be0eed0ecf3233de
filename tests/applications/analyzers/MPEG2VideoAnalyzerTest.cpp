#include "Analyzers/MPEG2VideoAnalyzer.h"

#include "Metadata/Structural/MPEG2VideoDescriptor.h"
#include "support/AnalyzedEssence.h"
#include "support/FFmpeg.h"
#include "support/Failure.h"
#include "support/MPEGVideo.h"

#include <memory>
#include <sstream>

namespace Vantry { namespace Tests {

using Analyzers::MPEG2VideoAnalyzer;
using Metadata::Structural::MPEG2VideoDescriptor;
using Rate = Templates::Rational<int>;

class MPEG2VideoAnalyzerTest : public testing::Test
{
protected:
    MPEG2VideoAnalyzer & analyze(Bytes const & stream, UInt64 longest = 300)
    {
        analyzer_ = std::make_unique<MPEG2VideoAnalyzer>(pieceSource(blocks_, cutAtRandom(stream, longest, random_)));
        analyzer_->preload();
        return *analyzer_;
    }

    std::mt19937 random_{4};
    CountingBlocks blocks_;
    std::unique_ptr<MPEG2VideoAnalyzer> analyzer_;
};

TEST_F(MPEG2VideoAnalyzerTest, TellsTheOrderAndTheKindOfPictures)
{
    Bytes const userData = hex("000001B2 414243 0000");
    std::tuple<char const *, std::vector<Bytes>, std::vector<int>, std::vector<int>> const cases[] = {
        {"intra",
         {SEQUENCE + CLOSED + picture(1, 0), OPEN + picture(1, 0), SEQUENCE + picture(1, 1)},
         {0xC0, 0x80, 0xC0},
         {0, 0, 0}},
        {"closed and open groups",
         {SEQUENCE + CLOSED + userData + picture(1, 0), picture(2, 3), picture(3, 1), picture(3, 2),
          SEQUENCE + OPEN + picture(1, 2), picture(3, 0), picture(3, 1), CLOSED + picture(1, 0) + hex("000001B7")},
         {0xC0, 0x22, 0x33, 0x33, 0x40, 0x33, 0x33, 0x80},
         {0, 3, 1, 2, 2, 0, 1, 0}},
        {"two intra pictures in a group",
         {SEQUENCE + CLOSED + picture(1, 0), picture(2, 1), picture(1, 4), picture(3, 2), picture(3, 3)},
         {0xC0, 0x22, 0x00, 0x33, 0x33},
         {0, 1, 2, 0, 1}},
        {"no group headers, references that begin again",
         {SEQUENCE + picture(1, 1023), picture(2, 0), picture(1, 1), picture(2, 2)},
         {0xC0, 0x22, 0x80, 0x22},
         {0, 1, 0, 1}},
        {"fields",
         {SEQUENCE + CLOSED + picture(1, 0, 1) + picture(2, 0, 2), picture(3, 1, 2) + picture(3, 1, 1)},
         {0xC0, 0x33},
         {0, 1}},
    };
    for (auto const & [name, frames, flags, temporalOffsets] : cases)
        for (UInt64 longest : {1, 3, 1000})
        {
            SCOPED_TRACE(name);
            Bytes stream;
            for (Bytes const & frame : frames)
                stream += frame;
            std::vector<Unit> const units = unitsOf(analyze(hex("00 00 00") + stream, longest));
            ASSERT_EQ(units.size(), frames.size());
            EXPECT_TRUE(analyzer_->done());
            for (std::size_t i = 0; i < units.size(); ++i)
            {
                EXPECT_EQ(units[i].data, frames[i]) << i;
                EXPECT_EQ(units[i].flags, flags[i]) << i;
                EXPECT_EQ(units[i].temporalOffset, temporalOffsets[i]) << i;
                EXPECT_EQ(units[i].duration, Rate(1, 25));
            }
        }
}

TEST_F(MPEG2VideoAnalyzerTest, TellsWhereAStreamIsDamaged)
{
    Bytes const first = SEQUENCE + CLOSED + picture(1, 0);
    std::string const at = " at byte " + std::to_string(first.size());
    Bytes otherSize = SEQUENCE;
    otherSize[5] ^= 0x40;
    std::pair<char const *, Bytes> const cases[] = {
        {"picture of no known type", picture(4, 1)},
        {"picture of no known structure", picture(2, 1, 0)},
        {"header that is cut off", hex("000001B3 0400")},
        {"start code BAh of a multiplex", hex("000001BA 4400")},
        {"picture without slices", picture(2, 1).first(17)},
        {"picture without coding extension", hex("00000100 0053FFF8") + SLICE},
        {"field without a second one", picture(2, 1, 1)},
        {"frame of more than 20 MiB", picture(2, 1) + repeated(21 << 20, 0xFF)},
    };
    for (auto const & [fault, bytes] : cases)
    {
        SCOPED_TRACE(fault);
        std::string const place =
            std::string(fault) == "picture of no known structure" ? " at byte " + std::to_string(first.size() + 8) : at;
        EXPECT_FAILURE(InvalidFormat, ("MPEG-2 video has a " + std::string(fault) + place).c_str(),
                       unitsOf(analyze(first + bytes)));
    }

    Bytes const lower = hex("00000102 12345678");
    Bytes const fields = picture(1, 1, 1) + lower + picture(2, 1, 2);
    Bytes const cut = first + lower + fields + lower + picture(2, 2);
    EXPECT_EQ(unitsOf(analyze(cut + lower)).size(), 3u);
    EXPECT_EQ(unitsOf(analyze(first + lower + fields)).size(), 2u) << "fields have fewer rows";
    EXPECT_FAILURE(InvalidFormat,
                   ("MPEG-2 video has a picture that is cut off at byte " + std::to_string(cut.size())).c_str(),
                   unitsOf(analyze(cut)));

    auto const second = std::to_string(first.size() + otherSize.size());
    EXPECT_FAILURE(
        InvalidFormat,
        ("MPEG-2 video has a picture of another size, chroma format or frame rate than the first at byte " + second)
            .c_str(),
        unitsOf(analyze(first + otherSize + picture(1, 0))));
    EXPECT_FAILURE(
        InvalidFormat,
        "MPEG-2 video has a picture without a sequence extension ahead of it, as in MPEG-1 video, at byte 12",
        analyze(SEQUENCE.first(12) + picture(1, 0)));
    EXPECT_FAILURE(InvalidFormat,
                   ("MPEG-2 video has a predicted picture at byte " + std::to_string(first.size() + 3 * 25) +
                    " after a beginning of intra pictures alone")
                       .c_str(),
                   unitsOf(analyze(first + picture(1, 1) + picture(1, 2) + picture(1, 3) + picture(2, 4))));

    EXPECT_FALSE(analyze({}).preload());
    EXPECT_FALSE(analyze(first.first(SEQUENCE.size())).preload());
    MPEG2VideoAnalyzer patient(pieceSource(blocks_, {repeated(70000, 0) + first}));
    EXPECT_FALSE(MPEG2VideoAnalyzer(pieceSource(blocks_, {repeated(70000, 0) + first})).preload());
    patient.maximumToSkip(80000);
    EXPECT_TRUE(patient.preload());
}

TEST_F(MPEG2VideoAnalyzerTest, DescribesTheStream)
{
    Bytes const stream =
        SEQUENCE + CLOSED + picture(1, 0) + picture(2, 2) + picture(3, 1) + OPEN + picture(1, 1) + picture(3, 0);
    DescribedEssence essence;
    ASSERT_TRUE(essence.describe(analyze(stream)));
    EXPECT_TRUE(analyzer_->containsTemporalDependencies());
    EXPECT_EQ(analyzer_->editRate(), Rate(25));
    EXPECT_EQ(analyzer_->essenceElementType(), 5);
    unitsOf(*analyzer_);
    EXPECT_TRUE(analyzer_->finalize());
    EXPECT_EQ(essence.duration(), 5);

    auto const & video = essence.descriptor<MPEG2VideoDescriptor>();
    EXPECT_EQ(*video.linkedTrack(), 7u);
    EXPECT_EQ(*video.sampleRate(), Types::Rational(25, 1));
    EXPECT_EQ(video.containerDuration()->value(), 5);
    EXPECT_EQ(*video.storedWidth(), 64u);
    EXPECT_EQ(*video.storedHeight(), 32u) << "of a field, in whole macroblocks";
    EXPECT_EQ(*video.sampledHeight(), 24u);
    EXPECT_EQ(*video.aspectRatio(), Types::Rational(4, 3));
    EXPECT_EQ(*video.frameLayout(), 1);
    EXPECT_EQ(video.videoLineMap(0)->value(), 1);
    EXPECT_EQ(video.videoLineMap(1)->value(), 25);
    EXPECT_EQ(*video.verticalSubsampling(), 2u);
    EXPECT_EQ(*video.closedGOP(), Types::Boolean(false));
    EXPECT_EQ(*video.identicalGOP(), Types::Boolean(true)) << "the last group may be a part";
    EXPECT_EQ(*video.maxGOP(), 3u);
    EXPECT_EQ(*video.bPictureCount(), 1u);
    EXPECT_EQ(*video.profileAndLevel(), 0x48);
    EXPECT_EQ((*video.pictureEssenceCoding())[14], 0x11);
}

// What ffprobe tells of a stream: the sizes of the frames in coded order, and
// their types and places in coded order, in the order of display.
struct Probed
{
    explicit Probed(std::string const & path)
    {
        std::istringstream packets(outputOf("packet=size", path));
        for (std::size_t size = 0; packets >> size;)
            sizes.push_back(size);
        std::istringstream frames(outputOf("frame=pict_type,coded_picture_number", path));
        for (std::string line; std::getline(frames, line);)
            if (line.size() > 2)
                shown.emplace_back(line[0], std::stoul(line.substr(2)));
    }

    static std::string outputOf(std::string const & entries, std::string const & path)
    {
        std::string const command = "ffprobe -v error -of csv=p=0 -show_entries " + entries + " " + path;
        std::unique_ptr<std::FILE, int (*)(std::FILE *)> const pipe(popen(command.c_str(), "r"), pclose);
        std::string text;
        for (int c = 0; (c = std::fgetc(pipe.get())) != EOF;)
            text += static_cast<char>(c);
        return text;
    }

    std::vector<std::size_t> sizes;
    std::vector<std::pair<char, std::size_t>> shown;
};

TEST_F(MPEG2VideoAnalyzerTest, AgreesWithFFprobe)
{
    VANTRY_NEEDS_FFMPEG();
    struct Case
    {
        char const *input, *coding;
        Rate rate;
        bool isIntra;
        Int32 line;
    };

    Case const cases[] = {
        {"s=1920x1080:r=25", "-g 12 -bf 2 -flags +ildct+ilme -b:v 8M -pix_fmt yuv422p", 25, false, 21},
        {"s=1280x720:r=60000/1001", "-g 15 -bf 2 -flags +cgop -sc_threshold 1000000000", Rate(60000, 1001), false, 26},
        {"s=720x576:r=25", "-g 1 -intra_vlc 1 -flags +ildct", 25, true, 23},
        {"s=720x480:r=30000/1001", "-g 9 -bf 0", Rate(30000, 1001), false, 46},
        {"s=704x480:r=24000/1001", "-g 18 -bf 4 -b_strategy 1 -threads 4 -slices 8", Rate(24000, 1001), false, 46},
    };
    for (Case const & c : cases)
    {
        SCOPED_TRACE(c.input);
        FFmpegFile const file(std::string("-f lavfi -i testsrc2=d=0.8:") + c.input + " -c:v mpeg2video " + c.coding +
                              " -f mpeg2video");
        Probed const probed(file.path().string());
        DescribedEssence essence;
        ASSERT_TRUE(essence.describe(analyze(file.content(), 1 << 17)));
        EXPECT_EQ(analyzer_->editRate(), c.rate);
        EXPECT_EQ(analyzer_->containsTemporalDependencies(), !c.isIntra);
        EXPECT_EQ(essence.descriptor<MPEG2VideoDescriptor>().videoLineMap(0)->value(), c.line);

        std::vector<Unit> const units = unitsOf(*analyzer_);
        EXPECT_EQ(bytesOf(units), file.content());
        ASSERT_EQ(units.size(), probed.sizes.size());
        ASSERT_EQ(units.size(), probed.shown.size());
        std::vector<std::pair<char, std::size_t>> coded(units.size());
        for (std::size_t place = 0; place < probed.shown.size(); ++place)
            coded.at(probed.shown[place].second) = {probed.shown[place].first, place};

        UInt64 const slices = std::accumulate(units.begin(), units.end(), UInt64(0),
                                              [](UInt64 sum, Unit const & unit) { return sum + unit.slices; });
        EXPECT_LE(slices, units.size() + file.content().size() / 10000) << "cut at frames alone";

        std::size_t anchor = 0;
        for (std::size_t i = 0; i < units.size(); ++i)
        {
            EXPECT_EQ(units[i].data.size(), probed.sizes[i]) << i;
            char const type = (units[i].flags & 0x10) != 0 ? 'B' : (units[i].flags & 0x20) != 0 ? 'P' : 'I';
            EXPECT_EQ(type, coded[i].first) << i;
            anchor = type == 'I' ? i : anchor;
            EXPECT_EQ(anchor + std::size_t(units[i].temporalOffset), coded[i].second) << i;
        }
    }
}

TEST_F(MPEG2VideoAnalyzerTest, StandsInWithBlack)
{
    VANTRY_NEEDS_FFMPEG();
    for (char const * coding : {"yuv420p -s 720x576 -flags +ildct -top 1", "yuv422p -s 1280x720", "yuv420p -s 90x3000"})
    {
        SCOPED_TRACE(coding);
        FFmpegFile const file(std::string("-f lavfi -i testsrc2=d=0.2 -c:v mpeg2video -f mpeg2video -pix_fmt ") +
                              coding);
        analyze(file.content());
        Bytes video;
        for (int i = 0; i < 3; ++i)
        {
            GenericContainer::EditUnit unit;
            analyzer_->fillNullEssence(unit);
            EXPECT_EQ(unit.flags, 0xC0);
            video += bytesOf(unit.data);
        }
        TemporaryFile const black(video);
        FFmpegFile const decoded("-xerror -err_detect explode -f mpegvideo -i " + black.path().string() +
                                 " -f rawvideo -pix_fmt yuv444p");
        Bytes const samples = decoded.content();
        ASSERT_GT(samples.size(), 0u);
        std::size_t const plane = samples.size() / 9;
        EXPECT_EQ(Bytes(samples.begin(), samples.begin() + std::ptrdiff_t(plane)), repeated(plane, 16));
        EXPECT_EQ(Bytes(samples.end() - std::ptrdiff_t(plane), samples.end()), repeated(plane, 128));
    }
}

}}
