#include "DataIO/File/FileDataSource.h"

#include "support/BytesSource.h"
#include "support/Failure.h"
#include "support/TemporaryFile.h"

#include <random>

using namespace Vantry;
using namespace Vantry::Tests;
using DataIO::File::FileDataSource;

namespace {

UInt64 const MAXIMUM = std::numeric_limits<UInt64>::max();
int const BUFFER_SIZES[] = {-1, 0, 1, 7, 4096, 100000};

Bytes take(DataIO::DataSource & source, UInt64 howMuch)
{
    Bytes bytes(howMuch);
    bytes.resize(source.read(bytes.data(), howMuch));
    return bytes;
}

// Moves and reads of all sizes, small ones more often than large ones.
void wanderThrough(DataIO::RandomAccessDataSource & source, DataIO::RandomAccessDataSource & expected)
{
    std::mt19937 random(1);
    auto const upTo = [&](UInt64 most)
    {
        return random() % (most + 1);
    };

    for (int step = 0; step < 3000; ++step)
    {
        UInt64 const distance = upTo(UInt64(1) << upTo(19));
        UInt64 const back = expected.absoluteOffset() - std::min(expected.absoluteOffset(), distance);
        switch (upTo(4))
        {
        case 0:
            ASSERT_EQ(source.skip(distance), expected.skip(distance)) << step;
            break;
        case 1:
            ASSERT_EQ(source.seek(distance), expected.seek(distance)) << step;
            break;
        case 2:
            ASSERT_EQ(source.seek(back), expected.seek(back)) << step;
            break;
        default:
            ASSERT_TRUE(take(source, distance) == take(expected, distance)) << step;
        }
        ASSERT_EQ(source.absoluteOffset(), expected.absoluteOffset()) << step;
        ASSERT_EQ(source.remaining(), expected.remaining()) << step;
    }
}

}

TEST(FileDataSource, ReadsTheFileWhateverTheBuffer)
{
    Bytes content = counting(300000);
    for (std::size_t i = 0; i < content.size(); i += 256)
        content[i] = static_cast<unsigned char>(i >> 8);
    TemporaryFile const file(content);

    for (int bufferSize : BUFFER_SIZES)
    {
        SCOPED_TRACE(bufferSize);
        FileDataSource source(file.name(), bufferSize);
        BytesSource expected(content);
        wanderThrough(source, expected);
        EXPECT_EQ(source.skip(MAXIMUM), expected.skip(MAXIMUM));
        EXPECT_TRUE(source.endOfStream());
        source.seek(0);
        EXPECT_FALSE(source.endOfStream());
    }
}

TEST(FileDataSource, TakesFromTheBufferWhatIsThere)
{
    TemporaryFile file(repeated(100, 'a'));
    FileDataSource source(file.name(), 50);
    EXPECT_EQ(take(source, 1), hex("61"));

    file.write(repeated(100, 'b'));
    EXPECT_EQ(source.skip(47), 47u);
    EXPECT_EQ(take(source, 4), hex("61 61 62 62"));
    source.seek(0);
    EXPECT_EQ(take(source, 50), repeated(50, 'b')) << "as much as the buffer holds goes past it";
}

TEST(FileDataSource, KnowsTheSizeFromOpening)
{
    TemporaryFile file(counting(10));
    FileDataSource source(file.name(), -1);
    file.write(counting(20));
    EXPECT_EQ(take(source, 100), counting(10));

    FileDataSource shrinking(file.name(), 4);
    file.write(counting(3));
    EXPECT_EQ(take(shrinking, 10), counting(3)) << "a file that shrank is no failure";
    EXPECT_EQ(take(shrinking, 1), Bytes());
    EXPECT_TRUE(shrinking.endOfStream());
}

TEST(FileDataSource, TellsWhatTheSystemSays)
{
    TemporaryFile file;
    file.remove();
    std::string const message = "file_ != 0: Error opening: '" + file.path().string() + "'. No such file or directory";
    EXPECT_FAILURE(IOError, message.c_str(), FileDataSource(file.name(), -1));

    // A folder can be opened but not read.
    std::filesystem::create_directory(file.path());
    std::filesystem::create_directory(file.path() / "entry");
    for (int bufferSize : {0, 4})
    {
        FileDataSource folder(file.name(), bufferSize);
        if (folder.endOfStream())
            GTEST_SKIP() << "this system gives a folder no size";
        unsigned char byte = 0;
        EXPECT_FAILURE(IOError, "Error reading from file. Is a directory", folder.read(&byte, 1));
        EXPECT_EQ(folder.absoluteOffset(), 0u);
    }
}
