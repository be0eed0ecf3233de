#include "Growing/FileSource.h"

#include "support/Failure.h"
#include "support/TemporaryFile.h"

namespace Vantry { namespace Growing { namespace {

using namespace Tests;

Bytes take(DataIO::DataSource & source, UInt64 howMuch)
{
    Bytes bytes(howMuch);
    bytes.resize(source.read(bytes.data(), howMuch));
    return bytes;
}

TEST(GrowingFileSource, SeesWhatIsAppendedFromTheNextRefreshOn)
{
    Bytes const all = counting(200);
    for (UInt64 bufferSize : {0, 7, 50, 1000})
    {
        SCOPED_TRACE(bufferSize);
        TemporaryFile file(all.first(60));
        FileSource source(file.name(), bufferSize);
        EXPECT_EQ(take(source, 100), all.first(60));
        EXPECT_TRUE(source.endOfStream());

        file.write(all);
        EXPECT_TRUE(source.endOfStream());
        EXPECT_EQ(source.seek(100), 60u);
        EXPECT_EQ(source.skip(1), 0u);

        EXPECT_EQ(source.refresh(), 200u);
        EXPECT_EQ(source.absoluteOffset(), 60u);
        EXPECT_EQ(source.remaining(), 140u);
        for (UInt64 position : {60, 3, 10, 120, 199, 200})
        {
            source.seek(position);
            UInt64 const size = std::min<UInt64>(30, 200 - position);
            EXPECT_EQ(take(source, 30), Bytes(all.data() + position, all.data() + position + size));
            EXPECT_EQ(source.absoluteOffset(), position + size);
        }
        source.seek(0);
        EXPECT_EQ(source.skip(~UInt64(0)), 200u);
    }
}

TEST(GrowingFileSource, TakesFromTheBufferWhatIsThere)
{
    TemporaryFile file(repeated(100, 'a'));
    FileSource source(file.name(), 50);
    take(source, 1);
    file.write(repeated(100, 'b'));
    source.seek(30);
    source.skip(9);
    EXPECT_EQ(take(source, 11), repeated(11, 'a'));
    source.seek(0);
    source.refresh();
    EXPECT_EQ(take(source, 50), repeated(50, 'a')) << "nothing came";
    file.write(repeated(101, 'c'));
    source.seek(0);
    source.refresh();
    EXPECT_EQ(take(source, 50), repeated(50, 'c')) << "what was there may have changed, too";
}

TEST(GrowingFileSource, StaysWithItsFile)
{
    TemporaryFile file(counting(10));
    FileSource source(file.name());
    source.discard();
    file.write(counting(4));
    EXPECT_EQ(source.refresh(), 4u) << "a file that was cut off";
    EXPECT_EQ(source.absoluteOffset(), 4u);

    file.remove();
    source.seek(0);
    EXPECT_EQ(take(source, 10), counting(4)) << "a name that is gone";
    EXPECT_FAILURE(IOError, "Error opening file. No such file or directory", FileSource(file.name()));
}

}}}
