#pragma once

#include "support/TemporaryFile.h"

#include <stdexcept>

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

/// Codes 25 pictures a second of 720 x 608 as D-10 takes them.
inline std::string const D10_PICTURE =
    "-c:v mpeg2video -pix_fmt yuv422p -g 1 -b:v 30M -minrate 30M -maxrate 30M -bufsize 1200000"
    " -rc_init_occupancy 1200000 -qmin 1 -qmax 12 -flags +ildct+low_delay -dc 10 -intra_vlc 1"
    " -non_linear_quant 1 -ps 1 ";

/// Arguments for a small MXF file of each kind that ffmpeg writes.
inline std::vector<std::string> ffmpegKinds()
{
    std::string const picture = "-f lavfi -i testsrc2=s=720x608:r=25:d=0.2 ";
    std::string const sound = "-f lavfi -i sine=r=48000:d=0.2 -c:a pcm_s16le ";
    return {
        picture + sound + "-c:v mpeg2video -f mxf",
        picture + sound + D10_PICTURE + "-f mxf_d10",
        sound + "-f mxf_opatom",
    };
}

}}

/// Ends a test that needs ffmpeg where there is none.
#define VANTRY_NEEDS_FFMPEG()          \
    if (!::Vantry::Tests::hasFFmpeg()) \
    GTEST_SKIP() << "there is no ffmpeg"
