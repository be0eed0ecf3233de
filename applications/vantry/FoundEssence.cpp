#include "FoundEssence.h"

#include "Analyzers/AVIStream.h"
#include "Analyzers/JPEG2000Analyzer.h"
#include "DataIO/File/FileSliceSource.h"
#include "DataIO/RandomAccessDataSource.h"
#include "Essence/Converters/PCMToWave.h"
#include "Essence/Wave/FormatChunk.h"
#include "Exceptions/BaseException.h"
#include "Failure.h"
#include "Input.h"
#include "Platform/Text.h"
#include "StreamForms.h"
#include "Text.h"

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

// What is looked at to recognise an input.
UInt64 const HEAD_SIZE = 65536;

// A slice stays in the processor's cache on its way to the output.
UInt64 const SLICE_SIZE = 1 << 18;

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
    return Source(
        new DataIO::File::FileSliceSource(Platform::stringToWstring(file.c_str()).c_str(), SLICE_SIZE, SLICE_SIZE));
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
    if (std::optional<EssenceKind> const kind = kindOfStream(head))
        return {{file, *kind, Carrier::NONE, 0, fs::file_size(file)}};
    if (head.empty())
        refuse(file, "is empty");
    if (isCodestream(head))
        refuse(file, "is a single JPEG 2000 codestream, and pictures are taken by the folder");
    refuse(file, "is none of what can be wrapped: waves, MPEG-2 video, DV, AVI files of these, ancillary data");
}

Source openEssence(FoundEssence const & essence)
{
    if (essence.carrier == Carrier::NONE)
        return openFile(essence.file);

    std::unique_ptr<AVIStream> stream = openAVI(essence.file, essence.stream);
    auto const header = isSound(stream->info()) ? waveHeader(stream->info()) : nullptr;
    Source const raw(stream.release());
    return header != nullptr ? Source(new PCMToWave(raw, *header)) : raw;
}

}}
