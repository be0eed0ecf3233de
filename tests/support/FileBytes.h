#pragma once

#include "support/Bytes.h"

#include <filesystem>
#include <fstream>

namespace Vantry { namespace Tests {

/// The content of the file; nothing when there is none.
inline Bytes readFile(std::filesystem::path const & path)
{
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    Bytes bytes(file ? static_cast<std::size_t>(file.tellg()) : 0);
    file.seekg(0);
    file.read(reinterpret_cast<char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

/// Replaces the content of the file, or makes it.
inline void writeFile(std::filesystem::path const & path, Bytes const & content)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<char const *>(content.data()), static_cast<std::streamsize>(content.size()));
}

}}
