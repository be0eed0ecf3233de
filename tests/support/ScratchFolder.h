#pragma once

#include "support/FileBytes.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace Vantry { namespace Tests {

/// A folder of its own in the temporary folder, gone with this object and all
/// that is in it.
class ScratchFolder
{
public:
    ScratchFolder()
    {
        std::string path = testing::TempDir() + "vantry-XXXXXX";
        path_ = mkdtemp(path.data());
    }

    ScratchFolder(ScratchFolder const &) = delete;
    ScratchFolder & operator=(ScratchFolder const &) = delete;
    ~ScratchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    std::filesystem::path const & path() const { return path_; }
    void write(std::string const & name, Bytes const & content) const { writeFile(path_ / name, content); }

private:
    std::filesystem::path path_;
};

}}
