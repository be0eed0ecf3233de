#pragma once

#include "Platform/Text.h"
#include "support/ScratchFolder.h"

namespace Vantry { namespace Tests {

/// A file in a folder of its own, gone with this object.
class TemporaryFile
{
public:
    explicit TemporaryFile(Bytes const & content = {}) { write(content); }

    std::filesystem::path const & path() const { return path_; }
    unsigned short const * name() const { return name_.c_str(); }

    Bytes content() const { return readFile(path_); }

    /// Replaces the content; whoever has the file open sees it.
    void write(Bytes const & content) { writeFile(path_, content); }

    void remove() { std::filesystem::remove_all(path_); }

private:
    ScratchFolder folder_;
    std::filesystem::path path_ = folder_.path() / "file";
    Templates::wstring name_ = Platform::stringToWstring(path_.c_str());
};

}}
