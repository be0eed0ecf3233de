// Writes a wave file with a tone, made as it is written.

#include "DataIO/File/FileDataSink.h"
#include "Essence/Wave/FormatChunk.h"
#include "Essence/Wave/WaveWriter.h"
#include "Exceptions/BaseException.h"
#include "Platform/Text.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

using namespace Vantry;

namespace {

unsigned int const SAMPLING_RATE = 48000;
unsigned short const BITS = 16;
unsigned short const CHANNELS = 1;

unsigned int sampleAt(unsigned int number)
{
    double const pi = 3.14159265358979323846;
    double const frequency = 440;
    double const amplitude = 8000;
    double const value = amplitude * std::sin(2 * pi * frequency * number / SAMPLING_RATE);
    return static_cast<unsigned int>(std::lround(value));
}

void write(char const * path, unsigned int seconds)
{
    int const BUFFER_SIZE = 1 << 20;
    DataIO::File::FileDataSink file(Platform::stringToWstring(path).c_str(), false, BUFFER_SIZE);
    Essence::Wave::WaveWriter wave(file, BITS, SAMPLING_RATE, CHANNELS, Essence::Wave::FORMAT_TAG_PCM);
    for (unsigned int i = 0; i < seconds * SAMPLING_RATE; ++i)
        wave.writeSample(sampleAt(i));

    // Only now the length is known that the header tells.
    file.seek(0);
    wave.updateHeader();
    file.flush();
}

}

int main(int argc, char ** argv)
{
    unsigned long const seconds = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 2;
    if (argc < 2 || argc > 3 || seconds == 0 || seconds > 3600)
    {
        std::fprintf(stderr, "usage: write-wave FILE [SECONDS]\n");
        return 2;
    }

    try
    {
        write(argv[1], static_cast<unsigned int>(seconds));
        return 0;
    }
    catch (Exceptions::BaseException const & failure)
    {
        std::fprintf(stderr, "%s\n", Platform::wstringToString(failure.what()).c_str());
        return 1;
    }
}
