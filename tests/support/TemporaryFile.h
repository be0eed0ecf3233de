#pragma once

#include "Platform/Text.h"
#include "support/FileBytes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

namespace Vantry { namespace Tests {

/// A file of its own in the temporary folder, gone with this object.
class TemporaryFile
{
public:
    explicit TemporaryFile(Bytes const & content = {})
    {
        std::string path = testing::TempDir() + "vantry-XXXXXX";
        close(mkstemp(path.data()));
        path_ = path;
        name_ = Platform::stringToWstring(path.c_str());
        write(content);
    }

    TemporaryFile(TemporaryFile const &) = delete;
    TemporaryFile & operator=(TemporaryFile const &) = delete;
    ~TemporaryFile() { remove(); }

    std::filesystem::path const & path() const { return path_; }
    unsigned short const * name() const { return name_.c_str(); }

    Bytes content() const { return readFile(path_); }

    /// Replaces the content; whoever has the file open sees it.
    void write(Bytes const & content) { writeFile(path_, content); }

    void remove()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

private:
    std::filesystem::path path_;
    Templates::wstring name_;
};

}}
