#pragma once

#include "support/TemporaryFile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace Vantry { namespace Tests {

inline bool hasFFmpeg()
{
    return std::system("ffmpeg -version >/dev/null 2>&1") == 0;
}

/// A file that ffmpeg writes, gone with this object. The arguments name
/// inputs, coders and format.
class FFmpegFile : public TemporaryFile
{
public:
    explicit FFmpegFile(std::string const & arguments)
    {
        std::string const command = "ffmpeg -nostdin -y -loglevel error " + arguments + " " + path().string();
        if (std::system(command.c_str()) != 0)
            throw std::runtime_error("failed: " + command);
    }
};

}}

/// Ends a test that needs ffmpeg where there is none.
#define VANTRY_NEEDS_FFMPEG()          \
    if (!::Vantry::Tests::hasFFmpeg()) \
    GTEST_SKIP() << "there is no ffmpeg"
