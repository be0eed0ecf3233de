#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace Vantry { namespace Tests {

/// The folder of sample files: the environment variable VANTRY_SAMPLES, or
/// shared/samples beside the source tree. It need not exist.
inline std::filesystem::path sampleFolder()
{
    char const * const named = std::getenv("VANTRY_SAMPLES");
    return named ? named : VANTRY_SAMPLES;
}

/// The MXF files in the folder of samples, in order of their names; none
/// where there is no such folder.
inline std::vector<std::filesystem::path> samples()
{
    std::vector<std::filesystem::path> files;
    if (!std::filesystem::is_directory(sampleFolder()))
        return files;

    for (std::filesystem::directory_entry const & entry : std::filesystem::directory_iterator(sampleFolder()))
        if (entry.path().extension() != ".md" && entry.path().extension() != ".json")
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

}}

/// Ends a test that reads samples where there are none.
#define VANTRY_NEEDS_SAMPLES()              \
    if (::Vantry::Tests::samples().empty()) \
    GTEST_SKIP() << "no sample files in " << ::Vantry::Tests::sampleFolder()
