#include "Analyzers/JPEG2000Analyzer.h"

#include "Metadata/Structural/JPEG2000PictureSubDescriptor.h"
#include "Metadata/Structural/RGBAEssenceDescriptor.h"
#include "support/AnalyzedEssence.h"
#include "support/Codestream.h"
#include "support/FFmpeg.h"
#include "support/Failure.h"

namespace Vantry { namespace Tests {

using namespace Metadata::Structural;
using Analyzers::JPEG2000Analyzer;
using Rate = Templates::Rational<int>;

class JPEG2000AnalyzerTest : public testing::Test
{
protected:
    JPEG2000Analyzer & analyze()
    {
        analyzer_ = std::make_unique<JPEG2000Analyzer>(JPEG2000Analyzer::filesIn(folder_.path().string()));
        analyzer_->editRate(24);
        analyzer_->preload();
        return *analyzer_;
    }

    void expectRefusal(std::string const & file, std::string const & text)
    {
        EXPECT_FAILURE(InvalidFormat, ((folder_.path() / file).string() + ": " + text).c_str(), unitsOf(analyze()));
    }

    ScratchFolder folder_;
    std::unique_ptr<JPEG2000Analyzer> analyzer_;
};

TEST_F(JPEG2000AnalyzerTest, GivesTheFilesOfAFolderInOrder)
{
    char const * const names[] = {"a", "a2", "a02b", "a10", "a10b3", "a10b20", "b1"};
    Bytes all;
    for (unsigned char i = 0; i < 7; ++i)
    {
        folder_.write(names[i], codestream(64, 4, 1, i));
        all += codestream(64, 4, 1, i);
    }
    folder_.write(".hidden", hex("00"));

    JPEG2000Analyzer & analyzer = analyze();
    EXPECT_EQ(analyzer.getDuration(), Rate(7, 24));
    DescribedEssence essence;
    ASSERT_TRUE(essence.describe(analyzer));
    std::vector<Unit> const units = unitsOf(analyzer);
    ASSERT_EQ(units.size(), 7u);
    EXPECT_EQ(units[0].duration, Rate(1, 24));
    EXPECT_EQ(bytesOf(units), all);
    EXPECT_TRUE(analyzer.done());
    EXPECT_TRUE(analyzer.finalize());
    EXPECT_EQ(essence.duration(), 7);

    auto const & picture = essence.descriptor<RGBAEssenceDescriptor>();
    EXPECT_EQ(*picture.storedWidth(), 64u);
    EXPECT_EQ(*picture.sampledHeight(), 1080u);
    EXPECT_EQ(picture.videoLineMap(0)->value(), 42);
    EXPECT_EQ(*picture.componentMaxRef(), 4095u);
    EXPECT_EQ(picture.pixelLayout()->get(0).code, 0xD8) << "digital cinema";
    EXPECT_EQ((*picture.pictureEssenceCoding())[15], 4);
    auto const & coding = dynamic_cast<JPEG2000PictureSubDescriptor &>(*picture.linkedSubDescriptor(0));
    EXPECT_EQ(*coding.rsiz(), 4);
    EXPECT_EQ(*coding.xTsiz(), 128u);
    EXPECT_EQ(*coding.csiz(), 3);
    EXPECT_EQ(coding.j2KPictureComponentsCount(), 3u);
    EXPECT_EQ(coding.codingStyleDefault()->sGcod(), 0x00000101u);
    EXPECT_EQ(coding.quantisationDefault()->sqcd(), 0x42);
}

TEST_F(JPEG2000AnalyzerTest, TellsWhichFileIsWrong)
{
    EXPECT_FALSE(analyze().preload());
    folder_.write("1", hex("00 00 00 0C 6A 50"));
    EXPECT_FALSE(analyze().preload());

    Bytes const good = codestream(64, 0, 1, 0);
    folder_.write("1", good.first(60));
    expectRefusal("1", "the header of the codestream is wrong up to byte 55, "
                       "Not enough data to read from the source");
    folder_.write("1", good);
    folder_.write("2", {});
    expectRefusal("2", "is no JPEG 2000 codestream");
    folder_.write("2", good.first(good.size() - 1));
    expectRefusal("2", "the codestream is cut off at byte " + std::to_string(good.size() - 1));
    folder_.write("2", codestream(65, 0, 1, 0));
    expectRefusal("2", "the picture has another size or other components than the first");

    JPEG2000Analyzer gone({(folder_.path() / "1").string(), (folder_.path() / "3").string()});
    gone.editRate(24);
    EXPECT_FAILURE(IOError, ((folder_.path() / "3").string() + ": No such file or directory").c_str(), unitsOf(gone));
    EXPECT_FAILURE(IOError, "/no/such: No such file or directory", JPEG2000Analyzer::filesIn("/no/such"));
}

TEST_F(JPEG2000AnalyzerTest, DescribesWhatFFmpegWrites)
{
    VANTRY_NEEDS_FFMPEG();
    std::string const files = (folder_.path() / "%d.j2c").string();
    FFmpegFile const sequence(
        "-f lavfi -i testsrc2=s=1280x720:d=0.08:r=25 -pix_fmt yuv422p -c:v jpeg2000 -format j2k -f image2 " + files +
        " -f null");
    DescribedEssence essence;
    ASSERT_TRUE(essence.describe(analyze()));
    auto const & picture = essence.descriptor<CDCIEssenceDescriptor>();
    EXPECT_EQ(*picture.componentDepth(), 8u);
    EXPECT_EQ(*picture.horizontalSubsampling(), 2u);
    EXPECT_EQ(*picture.verticalSubsampling(), 1u);
    EXPECT_EQ(*picture.aspectRatio(), Types::Rational(16, 9));
    EXPECT_EQ(picture.videoLineMap(0)->value(), 26);
    EXPECT_EQ(unitsOf(*analyzer_).size(), 2u);
}

}}
