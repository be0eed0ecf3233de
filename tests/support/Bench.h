#pragma once

#include "DataIO/File/FileDataSource.h"
#include "support/FFmpeg.h"
#include "support/VantryProgram.h"
#include "support/WrittenFile.h"

#include <nlohmann/json.hpp>

namespace Vantry { namespace Tests {

using Json = nlohmann::ordered_json;

/// A folder to make inputs in, with ffmpeg and without.
class Bench
{
public:
    ScratchFolder const scratch;

    std::string shell(std::string const & command) const
    {
        std::string const line = "cd '" + scratch.path().string() + "' && { " + command + "; } > .said 2>&1";
        bool const isDone = std::system(line.c_str()) == 0;
        std::string const said = text(".said");
        EXPECT_TRUE(isDone) << command << "\n" << said;
        return said;
    }

    std::string ffmpeg(std::string const & arguments) const
    {
        return shell("ffmpeg -nostdin -y -v warning -nostats -hide_banner " + arguments + " 2> .warned");
    }

    /// Two seconds of pictures.
    void pictures(std::string const & name, std::string const & sizeAndRate, std::string const & coding) const
    {
        ffmpeg("-f lavfi -i testsrc2=d=2:" + sizeAndRate + " -c:v mpeg2video " + coding + " -f mpeg2video " + name);
    }

    void sound(std::string const & name, std::string const & coding, std::string const & seconds = "2") const
    {
        ffmpeg("-f lavfi -i sine=r=48000:d=" + seconds + " " + coding + " -bitexact " + name);
    }

    Ended vantry(std::string const & arguments) const { return runVantry(scratch, arguments); }

    /// Runs what must not fail.
    std::string run(std::string const & arguments) const
    {
        Ended const ended = vantry(arguments);
        EXPECT_EQ(ended.status, 0) << arguments << "\n" << ended.errors;
        return ended.output;
    }

    Json info(std::string const & name) const { return Json::parse(run("info --json " + name)); }
    Bytes bytes(std::string const & name) const { return readFile(scratch.path() / name); }

    std::string text(std::string const & name) const
    {
        Bytes const content = bytes(name);
        return {content.begin(), content.end()};
    }

    std::vector<std::string> faults(std::string const & name) const
    {
        auto const path = Platform::stringToWstring((scratch.path() / name).c_str());
        DataIO::File::FileDataSource source(path.c_str(), -1);
        return WrittenFile(source).faults();
    }
};

/// Tests around one bench, on which their suite makes the inputs.
class BenchTest : public testing::Test
{
protected:
    static void TearDownTestSuite() { bench.reset(); }

    static inline std::unique_ptr<Bench> bench;
};

}}
