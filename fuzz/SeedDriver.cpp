// Runs a fuzz target on files where libFuzzer isn't at hand:
//
//     TARGET [--damage] FILE_OR_FOLDER...
//
// With --damage each file comes also cut short, and with a byte replaced by
// values that length fields and counts dislike: at every byte, or at some
// thousands of places spread over a longer file.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size);

namespace {

namespace fs = std::filesystem;

using Bytes = std::vector<std::uint8_t>;

// The copy has exactly the size of its content: a sanitizer then sees a read
// that goes one byte too far.
void run(Bytes const & bytes, std::size_t size)
{
    Bytes const exact(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
}

void runDamaged(Bytes bytes)
{
    std::size_t const MOST_PLACES = 4096;

    std::size_t const step = bytes.size() / MOST_PLACES + 1;
    for (std::size_t place = 0; place < bytes.size(); place += step)
    {
        run(bytes, place);

        std::uint8_t const intact = bytes[place];
        for (int damage : {0x00, 0x7F, 0x80, 0x88, 0xFF, intact ^ 0x01})
        {
            bytes[place] = static_cast<std::uint8_t>(damage);
            run(bytes, bytes.size());
        }
        bytes[place] = intact;
    }
}

std::vector<fs::path> filesOf(fs::path const & place)
{
    if (!fs::is_directory(place))
        return {place};

    std::vector<fs::path> files;
    for (fs::directory_entry const & entry : fs::recursive_directory_iterator(place))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    return files;
}

bool runFile(fs::path const & file, bool damage)
{
    std::ifstream in(file, std::ios::binary);
    if (!in)
    {
        std::cerr << "can't open " << file << '\n';
        return false;
    }

    Bytes const bytes{std::istreambuf_iterator<char>(in), {}};
    run(bytes, bytes.size());
    if (damage)
        runDamaged(bytes);
    return true;
}

}

int main(int argc, char ** argv)
{
    bool damage = false;
    std::size_t ran = 0;
    for (int i = 1; i < argc; ++i)
    {
        if (std::string(argv[i]) == "--damage")
        {
            damage = true;
            continue;
        }
        for (fs::path const & file : filesOf(argv[i]))
        {
            if (!runFile(file, damage))
                return 1;
            ++ran;
        }
    }

    std::cout << "ran " << ran << " files\n";
    return ran > 0 ? 0 : 1;
}
