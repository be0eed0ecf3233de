#include "Platform/Files.h"

#include "support/Failure.h"
#include "support/ScratchFolder.h"

#include "Platform/WideLiteral.h"

#include <csignal>
#include <iterator>

#include <sys/resource.h>
#include <unistd.h>

using namespace Vantry;
using Tests::Bytes;
using Tests::counting;
namespace fs = std::filesystem;

namespace {

class FilesTest : public testing::Test
{
protected:
    Templates::wstring name(char const * file) const { return Platform::stringToWstring((folder_ / file).c_str()); }

    void write(char const * file, Bytes const & content) const { scratch_.write(file, content); }
    Bytes content(char const * file) const { return Tests::readFile(folder_ / file); }

    bool copy(char const * from, char const * to) const
    {
        return Platform::copyFile(name(from).c_str(), name(to).c_str());
    }

    Tests::ScratchFolder const scratch_;
    fs::path const & folder_ = scratch_.path();
};

}

TEST_F(FilesTest, DescriptorsReadAndSeek)
{
    write("größe", counting(10));
    int const file = Platform::open(name("größe").c_str(), true, true);
    unsigned char buffer[16] = {};
    EXPECT_EQ(Platform::getFileSize(file), 10);
    EXPECT_TRUE(Platform::fileSeek(file, 7));
    EXPECT_EQ(Platform::read(file, buffer, sizeof(buffer)), 3);
    EXPECT_EQ(buffer[0], 7);
    EXPECT_EQ(Platform::read(file, buffer, sizeof(buffer)), 0);
    EXPECT_EQ(Platform::close(file), 0);
    EXPECT_EQ(Platform::close(file), -1);
}

TEST_F(FilesTest, OpeningForWritingMakesTheFile)
{
    std::string const message = "Error opening file: ('" + (folder_ / "new").string() + "'): No such file or directory";
    EXPECT_FAILURE(IOError, message.c_str(), Platform::open(name("new").c_str(), true, true));

    int const file = Platform::open(name("new").c_str(), true, false);
    EXPECT_EQ(::write(file, "x", 1), 1);
    Platform::close(file);
    EXPECT_EQ(content("new"), Bytes{'x'});
    EXPECT_TRUE(Platform::unlink(name("new").c_str()));
    EXPECT_FALSE(Platform::unlink(name("new").c_str()));
    EXPECT_EQ(Platform::fopen(name("new").c_str(), Platform::wide(u"rb")), nullptr);
}

TEST_F(FilesTest, StreamsSeekBeyondFourGigabytes)
{
    Int64 const FAR = (Int64(5) << 30) + 1;
    std::FILE * const file = Platform::fopen(name("sparse").c_str(), Platform::wide(u"w+b"));
    ASSERT_NE(file, nullptr);
    std::fputs("ab", file);
    EXPECT_TRUE(Platform::fileSeek(file, FAR)) << "and the two bytes are written";
    EXPECT_EQ(Platform::getFileSize(file), 2);
    std::fputs("c", file);
    EXPECT_TRUE(Platform::fileSeek(file, 1));
    EXPECT_EQ(Platform::getFileSize(file), FAR + 1);
    EXPECT_EQ(std::fgetc(file), 'b');
    EXPECT_TRUE(Platform::fileSeek(file, FAR));
    EXPECT_EQ(std::fgetc(file), 'c');
    EXPECT_FALSE(Platform::fileSeek(file, -1));
    std::fclose(file);
}

TEST_F(FilesTest, CopiesReplaceTheTarget)
{
    write("short", counting(3, 9));
    write("long", counting(300000));
    fs::permissions(folder_ / "short", fs::perms::owner_read);
    fs::create_symlink("long", folder_ / "link");

    ASSERT_TRUE(copy("long", "copy"));
    EXPECT_EQ(content("copy"), content("long"));
    ASSERT_TRUE(copy("short", "copy"));
    EXPECT_EQ(content("copy"), content("short"));
    EXPECT_EQ(fs::status(folder_ / "copy").permissions(), fs::perms::owner_read);
    ASSERT_TRUE(copy("short", "link"));
    EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
    EXPECT_EQ(content("long"), content("short")) << "a link is followed";
    ASSERT_TRUE(Platform::copyFile(Platform::wide(u"/proc/self/cmdline"), name("copy").c_str()));
    EXPECT_FALSE(content("copy").empty()) << "the system states the length 0 of such a file";
}

TEST_F(FilesTest, FailedCopiesLeaveTheTargetAlone)
{
    write("target", counting(5));
    fs::create_directory(folder_ / "folder");
    EXPECT_FALSE(copy("absent", "target"));
    EXPECT_FALSE(copy("folder", "target"));
    EXPECT_FALSE(copy("target", "folder"));
    EXPECT_FALSE(copy("target", "absent/target"));
    EXPECT_FALSE(Platform::copyFile(name("target").c_str(), Platform::wide(u"/dev/full")));

    // No room for the second half.
    write("long", counting(300000));
    std::signal(SIGXFSZ, SIG_IGN);
    ::rlimit old = {};
    ::getrlimit(RLIMIT_FSIZE, &old);
    ::rlimit const small = {150000, old.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_FALSE(copy("long", "target"));
    ::setrlimit(RLIMIT_FSIZE, &old);

    EXPECT_EQ(content("target"), counting(5));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 3) << "nothing else was left behind";
}
