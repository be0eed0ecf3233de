#include "FileWindow.h"
#include "GatheringFile.h"
#include "support/ScratchFolder.h"

#include <gmock/gmock.h>

namespace Vantry { namespace Tests {

using Application::FileWindow;
using Application::GatheringFile;
using Application::WindowedFile;

std::string contentOf(FileWindow const & window)
{
    return {window.begin(), window.begin() + window.size()};
}

TEST(FileWindow, HasTheBytesFromAnyPosition)
{
    ScratchFolder const scratch;
    Bytes content;
    for (int i = 0; i < 10000; ++i)
        content.push_back(static_cast<unsigned char>(i % 251));
    scratch.write("file", content);
    WindowedFile const file((scratch.path() / "file").string());
    ASSERT_EQ(file.size(), 10000u);

    for (UInt64 position : {0, 1, 4095, 4096, 9999})
    {
        std::size_t const size = std::min<UInt64>(5000, file.size() - position);
        FileWindow window = file.window(position, size);
        FileWindow const moved = std::move(window);
        EXPECT_EQ(moved.size(), size);
        EXPECT_TRUE(std::equal(moved.begin(), moved.begin() + moved.size(),
                               content.begin() + static_cast<std::ptrdiff_t>(position)))
            << position;
    }

    std::filesystem::resize_file(scratch.path() / "file", 4100);
    EXPECT_EQ(file.window(4000, 5000).size(), 100u) << "the file got shorter";
}

TEST(FileWindow, ReadsWhatCannotBeMapped)
{
    WindowedFile const file("/proc/self/status");
    EXPECT_THAT(contentOf(file.window(0, 100000)), testing::StartsWith("Name:"));
    EXPECT_THAT(contentOf(file.window(1, 100000)), testing::StartsWith("ame:"));
}

TEST(GatheringFile, HasTheBytesInOrderWhenTheyGoFromWhereTheyLay)
{
    ScratchFolder const scratch;
    std::string expected;
    GatheringFile file(scratch.path() / "file", "file");
    for (std::size_t size : {1, 1023, 1024, 3840, 60000, 5000, 70000, 3, 2000})
    {
        std::string lent(size, static_cast<char>('a' + expected.size() % 26));
        file.append(reinterpret_cast<unsigned char const *>(lent.data()), size);
        expected += lent;
        if (size % 2 == 0)
            file.settle();
        else
            file.flush();
        lent.assign(size, '-');
    }
    file.close();

    Bytes const written = readFile(scratch.path() / "file");
    EXPECT_EQ(std::string(written.begin(), written.end()), expected);
}

}}
