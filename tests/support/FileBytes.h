#pragma once

#include "support/Bytes.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace Vantry { namespace Tests {

inline Bytes readFile(std::filesystem::path const & path)
{
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

/// Replaces the content of the file, or makes it.
inline void writeFile(std::filesystem::path const & path, Bytes const & content)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<char const *>(content.data()), static_cast<std::streamsize>(content.size()));
}

}}
