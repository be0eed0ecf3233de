#include "DataIO/File/FileDataSink.h"

#include "Platform/WideLiteral.h"
#include "support/Failure.h"
#include "support/TemporaryFile.h"

using namespace Vantry;
using namespace Vantry::Tests;
using DataIO::File::FileDataSink;

namespace {

int const BUFFER_SIZES[] = {-1, 0, 1, 7, 4096};

// A device that takes nothing, as a full disk.
constexpr auto FULL_DISK = Platform::wide(u"/dev/full");

void write(DataIO::DataSink & sink, Bytes const & bytes)
{
    sink.write(bytes.data(), bytes.size());
}

}

TEST(FileDataSink, WritesAndRewritesAFile)
{
    for (int bufferSize : BUFFER_SIZES)
    {
        SCOPED_TRACE(bufferSize);
        TemporaryFile const file(counting(20));
        {
            FileDataSink sink(file.name(), false, bufferSize);
            EXPECT_EQ(sink.absoluteOffset(), 0u);
            write(sink, counting(10));
            EXPECT_EQ(sink.absoluteOffset(), 10u);
        }
        EXPECT_EQ(file.content(), counting(10)) << "the old content is gone";
        {
            FileDataSink sink(file.name(), true, bufferSize);
            EXPECT_EQ(sink.absoluteOffset(), 10u);
            write(sink, hex("0A"));
            EXPECT_EQ(sink.seek(2), 2u);
            write(sink, hex("AA BB CC DD"));
            EXPECT_EQ(sink.absoluteOffset(), 6u);
            EXPECT_EQ(sink.seek(100), 15u) << "the size counts replaced bytes too";
            EXPECT_EQ(sink.seek(11), 11u);
            write(sink, hex("0B"));
        }
        EXPECT_EQ(file.content(), hex("00 01 AA BB CC DD 06 07 08 09 0A 0B"));
    }
}

TEST(FileDataSink, HandsItsBytesOverWhenTold)
{
    TemporaryFile const file;
    FileDataSink buffered(file.name(), false, 4096);
    write(buffered, counting(3));
    EXPECT_EQ(file.content(), Bytes());
    buffered.flush();
    EXPECT_EQ(file.content(), counting(3));
    write(buffered, hex("03"));
    buffered.seek(0);
    EXPECT_EQ(file.content(), counting(4));
}

TEST(FileDataSink, TellsWhatTheSystemSays)
{
    TemporaryFile file;
    file.remove();
    std::string const message = "file_ != 0: Error opening: '" + file.path().string() + "'. No such file or directory";
    EXPECT_FAILURE(IOError, message.c_str(), FileDataSink(file.name(), true, -1));

    char const * const notWritten = "writeResult == howMuch: Error writing to file. No space left on device";
    FileDataSink unbuffered(FULL_DISK, false, 0);
    EXPECT_FAILURE(IOError, notWritten, write(unbuffered, counting(1)));
    EXPECT_EQ(unbuffered.absoluteOffset(), 0u);

    FileDataSink flushed(FULL_DISK, false, -1);
    write(flushed, counting(3));
    EXPECT_FAILURE(IOError, notWritten, flushed.flush());

    FileDataSink moved(FULL_DISK, false, -1);
    write(moved, counting(3));
    EXPECT_FAILURE(IOError, "Platform::fileSeek (file_, position): Error seeking. No space left on device",
                   moved.seek(0));
    EXPECT_EQ(moved.absoluteOffset(), 3u);
}
