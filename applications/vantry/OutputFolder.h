#pragma once

#include <filesystem>

namespace Vantry { namespace Application {

/// The folder for the output. One that was made for it goes with the object if
/// nothing is in it.
class OutputFolder
{
public:
    /// \throws Failure when it can't be made.
    explicit OutputFolder(std::filesystem::path path);
    OutputFolder(OutputFolder const &) = delete;
    OutputFolder & operator=(OutputFolder const &) = delete;
    ~OutputFolder();

private:
    std::filesystem::path path_;
    bool isNew_;
};

}}
