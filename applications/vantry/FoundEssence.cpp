#include "FoundEssence.h"

#include "Analyzers/AVIStream.h"
#include "Analyzers/JPEG2000Analyzer.h"
#include "DataIO/RandomAccessDataSource.h"
#include "DataIO/SliceReader.h"
#include "Essence/AES3/AES3Info.h"
#include "Essence/AES3/S302M/Source.h"
#include "Essence/Converters/PCMToWave.h"
#include "Essence/MPEG/PESParser.h"
#include "Essence/Wave/FormatChunk.h"
#include "Exceptions/BaseException.h"
#include "Failure.h"
#include "Input.h"
#include "PacketStreams.h"
#include "StreamForms.h"
#include "Text.h"
#include "WholeSoundPackets.h"
#include "WindowSource.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fmt/format.h>
#include <memory>

namespace Vantry { namespace Application {

namespace fs = std::filesystem;
using Analyzers::AVIStream;
using Essence::AVI::STREAMInfo;
using Essence::Converters::PCMToWave;
using Source = Templates::SharedPtr<DataIO::SliceSource>;

namespace {

// What is looked at to recognise an input: more than a packet of sound.
UInt64 const HEAD_SIZE = 1 << 17;

// A slice stays in the processor's cache on its way to the output, and is
// large enough that calls to the system don't count.
UInt64 const SLICE_SIZE = 1 << 20;

// Bytes that may lie between two packets of a stream.
UInt64 const LONGEST_GAP = 1 << 20;

[[noreturn]] void refuse(std::string const & file, std::string const & problem)
{
    throw Failure(ExitStatus::FAILED, file, problem);
}

std::string_view textOf(DataIO::Slice const & bytes)
{
    return {reinterpret_cast<char const *>(bytes.begin()), bytes.size()};
}

std::string headOf(std::string const & file)
{
    std::unique_ptr<DataIO::RandomAccessDataSource> const source = openRandomAccess(file);
    std::vector<unsigned char> bytes(std::min(source->remaining(), HEAD_SIZE));
    UInt64 const size = source->read(bytes.data(), bytes.size());
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)};
}

Source openFile(std::string const & file)
{
    return Source(new WindowSource(file, SLICE_SIZE));
}

std::unique_ptr<AVIStream> openAVI(std::string const & file, unsigned int stream)
try
{
    return std::make_unique<AVIStream>(openFile(file), stream);
}
catch (Exceptions::BaseException const & failure)
{
    refuse(file, problemOf(failure));
}

bool isSound(STREAMInfo const & info)
{
    return info.type == Essence::AVI::fourCC("auds");
}

/// "DX50", or a number where it is no text.
std::string nameOf(unsigned int code)
{
    std::string name;
    for (int i = 0; i < 4; ++i)
        name += static_cast<char>(code >> 8 * i);
    bool const isText = std::all_of(name.begin(), name.end(), [](char c) { return c >= ' ' && c <= '~'; });
    return isText ? name : fmt::format("{:#x}", code);
}

/// Null for sound that isn't PCM.
std::unique_ptr<Essence::Converters::WaveHeaderStructure> waveHeader(STREAMInfo const & info)
{
    using namespace Essence::Wave;
    FormatExtensibleChunk format;
    std::size_t const size = std::min(info.formatBlock.size(), sizeof(format));
    std::memcpy(&format, info.formatBlock.data(), size);
    bool const isExtensible =
        format.wFormatTag == FORMAT_TAG_EXTENSIBLE && size == sizeof(format) &&
        std::equal(std::begin(format.subFormat), std::end(format.subFormat), FORMAT_EXTENSIBLE_PCM_LABEL);
    if (size < sizeof(FormatPCMChunk) || (format.wFormatTag != FORMAT_TAG_PCM && !isExtensible))
        return nullptr;

    auto header = std::make_unique<Essence::Converters::WaveHeaderStructure>();
    header->bitsPerSample = isExtensible ? format.validBitsPerSample : format.bitsPerSample;
    header->channels = format.channels;
    header->blockAlign = format.blockAlign;
    header->samplesPerSecond = format.samplesPerSecond;
    header->averageBytesPerSecond = format.averageBytesPerSecond;
    header->formatTag = FORMAT_TAG_PCM;
    return header;
}

EssenceKind kindOf(std::string const & file, AVIStream & stream, unsigned int number)
{
    STREAMInfo const & info = stream.info();
    if (isSound(info))
    {
        if (waveHeader(info) == nullptr)
            refuse(file, fmt::format("stream {} is sound of format {:#x}, and PCM is taken", number, info.format));
        return EssenceKind::WAVE;
    }
    if (std::optional<EssenceKind> const kind = kindOfStream(textOf(*stream.read(HEAD_SIZE))))
        return *kind;
    refuse(file, fmt::format("stream {} is {} of {}, and DV, MPEG-2 video and PCM are taken", number, nameOf(info.type),
                             nameOf(info.format)));
}

std::vector<FoundEssence> findInAVI(std::string const & file)
{
    std::vector<FoundEssence> found;
    unsigned int streams = 1;
    for (unsigned int i = 0; i < streams; ++i)
    {
        std::unique_ptr<AVIStream> const stream = openAVI(file, i);
        streams = stream->streams();
        UInt64 const size = i == 0 ? fs::file_size(file) : 0;
        found.push_back({file, kindOf(file, *stream, i), Carrier::AVI, i, size});
    }
    return found;
}

Source openPackets(std::string const & file)
{
    bool const keepSkipped = false;
    return Source(new Essence::MPEG::PESParser(openFile(file), LONGEST_GAP, keepSkipped));
}

FoundEssence findInPackets(std::string const & file, std::string_view head)
try
{
    std::string const streams = elementaryStreamsIn(head);
    if (streams.find(',') != std::string::npos)
        refuse(file, "has several streams in packets (" + streams + "), and one is taken");

    DataIO::SliceReader reader(openPackets(file));
    std::optional<EssenceKind> const kind = kindOfStream(textOf(*reader.read(HEAD_SIZE)));
    if (!kind)
        refuse(file, "has packets of a stream (" + streams + ") that is none of what can be wrapped");
    return {file, *kind, Carrier::PES, 0, fs::file_size(file)};
}
catch (Exceptions::BaseException const & failure)
{
    refuse(file, problemOf(failure));
}

/// The sound of a stream of SMPTE 302M, as a wave.
Source decodeS302M(std::string const & file, Source const & packets)
try
{
    using Essence::AES3::AES3Info;
    Templates::SharedPtr<Essence::AES3::S302M::Source> const pcm(
        new Essence::AES3::S302M::Source(Source(new WholeSoundPackets(packets))));
    if (!pcm->preload())
        refuse(file, "begins with no whole packet of sound");
    AES3Info const & info = pcm->info();
    if (info.dataType != AES3Info::PCM)
        refuse(file, fmt::format("carries data of type {} (SMPTE 338), and PCM is taken", info.dataType));

    Essence::Converters::WaveHeaderStructure header;
    header.bitsPerSample = info.bitsPerSample;
    header.channels = info.channels;
    header.blockAlign = info.bytesPerSampleGroup;
    header.samplesPerSecond =
        static_cast<unsigned int>(info.samplingFrequency.numerator() / info.samplingFrequency.denominator());
    header.averageBytesPerSecond = header.samplesPerSecond * header.blockAlign;
    header.formatTag = Essence::Wave::FORMAT_TAG_PCM;
    return Source(new PCMToWave(pcm, header));
}
catch (Exceptions::BaseException const & failure)
{
    refuse(file, problemOf(failure));
}

Source openStreamOfAVI(FoundEssence const & essence)
{
    std::unique_ptr<AVIStream> stream = openAVI(essence.file, essence.stream);
    auto const header = isSound(stream->info()) ? waveHeader(stream->info()) : nullptr;
    Source const raw(stream.release());
    return header != nullptr ? Source(new PCMToWave(raw, *header)) : raw;
}

Source openCarried(FoundEssence const & essence)
{
    switch (essence.carrier)
    {
    case Carrier::AVI:
        return openStreamOfAVI(essence);
    case Carrier::PES:
        return openPackets(essence.file);
    case Carrier::NONE:
        break;
    }
    return openFile(essence.file);
}

UInt64 sizeOf(std::vector<std::string> const & files)
{
    UInt64 size = 0;
    for (std::string const & file : files)
        size += fs::file_size(file);
    return size;
}

}

std::vector<std::string> picturesIn(std::string const & folder)
{
    std::vector<std::string> files = Analyzers::JPEG2000Analyzer::filesIn(folder);
    if (files.empty())
        refuse(folder, "is a folder without files");
    if (!isCodestream(headOf(files.front())))
        refuse(folder, "is a folder that doesn't begin with a JPEG 2000 codestream, but with " +
                           fs::path(files.front()).filename().string());
    return files;
}

std::vector<FoundEssence> findEssence(std::string const & file)
{
    std::error_code ignored;
    if (fs::is_directory(file, ignored))
        return {{file, EssenceKind::JPEG_2000, Carrier::NONE, 0, sizeOf(picturesIn(file))}};

    std::string const head = headOf(file);
    if (isRIFF(head, "AVI "))
        return findInAVI(file);
    if (isPacketStream(head))
        return {findInPackets(file, head)};
    if (std::optional<EssenceKind> const kind = kindOfStream(head))
        return {{file, *kind, Carrier::NONE, 0, fs::file_size(file)}};
    if (head.empty())
        refuse(file, "is empty");
    if (isCodestream(head))
        refuse(file, "is a single JPEG 2000 codestream, and pictures are taken by the folder");
    refuse(file, "is none of what can be wrapped, which vantry wrap --help lists");
}

Source openEssence(FoundEssence const & essence)
{
    Source source = openCarried(essence);
    return essence.kind == EssenceKind::S302M ? decodeS302M(essence.file, source) : source;
}

}}
