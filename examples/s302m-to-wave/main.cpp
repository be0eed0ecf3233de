// Turns a stream of SMPTE 302M packets, as the payload of a transport stream
// has them, into a wave file, and tells what the stream is.

#include <Vantry/DataIO/File/FileDataSink.h>
#include <Vantry/DataIO/File/FileSliceSource.h>
#include <Vantry/Essence/AES3/AES3Info.h>
#include <Vantry/Essence/AES3/S302M/Source.h>
#include <Vantry/Essence/Wave/WaveWriter.h>
#include <Vantry/Exceptions/BaseException.h>
#include <Vantry/Platform/Text.h>
#include <Vantry/Templates/SharedPtr.h>

#include <cstdio>

using namespace Vantry;
using Essence::AES3::AES3Info;
using Essence::AES3::S302M::Source;
using Essence::Wave::WaveWriter;
using Templates::SharedPtr;

namespace {

void print(AES3Info const & info, UInt64 bytes)
{
    std::printf("%d channels of %d bits at %d Hz, %llu samples\n", info.channels, info.bitsPerSample,
                info.samplingFrequency.numerator() / info.samplingFrequency.denominator(),
                static_cast<unsigned long long>(bytes / info.bytesPerSampleGroup));
    if (info.dataType != AES3Info::PCM)
        std::printf("not PCM: data type %d of SMPTE 338\n", static_cast<int>(info.dataType));
}

void convert(Source & packets, DataIO::File::FileDataSink & sink)
{
    AES3Info const & info = packets.info();
    WaveWriter wave(sink, info.bitsPerSample, 48000, info.channels, 1);
    while (!packets.endOfStream())
        wave.write(*packets.read(65536));

    sink.seek(0);
    wave.updateHeader();
    print(info, packets.absoluteOffset());
}

}

int main(int argc, char ** argv)
{
    if (argc != 3)
    {
        std::fprintf(stderr, "usage: s302m-to-wave STREAM WAVE\n");
        return 2;
    }

    try
    {
        SharedPtr<DataIO::SliceSource> const file(
            new DataIO::File::FileSliceSource(Platform::stringToWstring(argv[1]).c_str(), 0, 0));
        Source packets(file);
        DataIO::File::FileDataSink sink(Platform::stringToWstring(argv[2]).c_str(), false, -1);
        convert(packets, sink);
        return 0;
    }
    catch (Exceptions::BaseException const & failure)
    {
        std::fprintf(stderr, "%s\n", Platform::wstringToString(failure.what()).c_str());
        return 1;
    }
}
