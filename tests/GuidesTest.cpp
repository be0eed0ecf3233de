// Code in the guides is code that is compiled: each block stands in one of the
// examples, letter by letter.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

// Lines without what they are indented by, which depends on the surroundings.
std::string textOf(std::istream & in)
{
    std::string text;
    for (std::string line; std::getline(in, line);)
        text += line.substr(std::min(line.find_first_not_of(' '), line.size())) + '\n';
    return text;
}

std::string textOfExamples(fs::path const & folder)
{
    std::string text;
    for (fs::directory_entry const & entry : fs::recursive_directory_iterator(folder))
    {
        std::ifstream in(entry.path());
        if (entry.is_regular_file())
            text += textOf(in);
    }
    return text;
}

TEST(Guides, ShowCodeOfTheExamples)
{
    fs::path const root(VANTRY_SOURCE_TREE);
    std::string const examples = textOfExamples(root / "examples");
    std::string const START = "```cpp\n";
    std::string const END = "```\n";

    int blocks = 0;
    for (fs::directory_entry const & entry : fs::directory_iterator(root / "docs"))
    {
        std::ifstream in(entry.path());
        std::string const guide = textOf(in);
        for (std::size_t at = guide.find(START); at != std::string::npos; at = guide.find(START, at))
        {
            at += START.size();
            std::string const block = guide.substr(at, guide.find(END, at) - at);
            EXPECT_NE(examples.find(block), std::string::npos) << entry.path() << " shows\n" << block;
            ++blocks;
        }
    }
    EXPECT_GT(blocks, 0);
}

}
