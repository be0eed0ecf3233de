#include "WrapInput.h"

#include "Analyzers/JPEG2000Analyzer.h"
#include "Analyzers/MPEG2VideoAnalyzer.h"
#include "Analyzers/WaveAnalyzer.h"
#include "DataIO/File/FileSliceSource.h"
#include "DataIO/RandomAccessDataSource.h"
#include "Exceptions/BaseException.h"
#include "Failure.h"
#include "GenericContainer/EditUnit.h"
#include "Input.h"
#include "Platform/Text.h"
#include "Text.h"

#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <vector>

namespace Vantry { namespace Application {

namespace fs = std::filesystem;
using Analyzers::JPEG2000Analyzer;
using Analyzers::MPEG2VideoAnalyzer;
using Analyzers::WaveAnalyzer;
using Labels = GenericContainer::RP224UniversalLabels;

namespace {

// What is looked at to recognise an input.
UInt64 const HEAD_SIZE = 65536;

// A slice stays in the processor's cache on its way to the output.
UInt64 const SLICE_SIZE = 1 << 18;

unsigned int const MOST_CHANNELS = 8;

// Start of codestream, and the size marker that follows.
char const * const CODESTREAM_START = "\xFF\x4F\xFF\x51";

// The length field of an element has three bytes for the number in frame
// wrapping.
UInt64 const LARGEST_ELEMENT = 0xFFFFFF;

[[noreturn]] void refuse(std::string const & file, std::string const & problem)
{
    throw Failure(ExitStatus::FAILED, file, problem);
}

bool hasAt(std::string const & head, std::size_t place, std::string const & text)
{
    return head.compare(place, text.size(), text) == 0;
}

bool isRIFF(std::string const & head, std::string const & form)
{
    bool const isForm = head.size() >= 12 && hasAt(head, 8, form);
    return isForm && (hasAt(head, 0, "RIFF") || hasAt(head, 0, "RF64"));
}

/// Whether a sequence header comes first, with stuffing ahead of it or without.
bool isMPEGVideo(std::string const & head)
{
    std::size_t const one = head.find_first_not_of('\0');
    return one != std::string::npos && one >= 2 && hasAt(head, one, "\x01\xB3");
}

std::string headOf(std::string const & file)
{
    std::unique_ptr<DataIO::RandomAccessDataSource> const source = openRandomAccess(file);
    std::vector<unsigned char> bytes(std::min(source->remaining(), HEAD_SIZE));
    UInt64 const size = source->read(bytes.data(), bytes.size());
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)};
}

/// An analyzer whose failures name the file that it reads. How long the essence
/// is shows at its end: a duration told ahead of it would be cut down to whole
/// edit units, where the last one is filled up.
template <class Base>
class OfFile : public Base
{
public:
    template <class From>
    OfFile(std::string file, From source, Labels::WrapKind wrapKind) :
        Base(std::move(source), wrapKind), file_(std::move(file)), isFrame_(wrapKind == Labels::FRAME), editUnits_(0)
    {
    }

    bool preload() override
    {
        return named([this] { return Base::preload(); });
    }

    bool nextEditUnit(GenericContainer::EditUnit & unit) override
    {
        bool const isThere = named([&] { return Base::nextEditUnit(unit); });
        UInt64 const size = unit.data.data_size();
        if (isFrame_ && size > LARGEST_ELEMENT)
            refuse(file_, fmt::format("edit unit {} has {} bytes, and an element in frame wrapping takes {} (16 MiB) "
                                      "at most",
                                      editUnits_, size, LARGEST_ELEMENT));
        ++editUnits_;
        return isThere;
    }

    Templates::Rational<int> getDuration() override { return -1; }

private:
    template <class Step>
    bool named(Step step) const
    try
    {
        return step();
    }
    catch (Exceptions::BaseException const & failure)
    {
        refuse(file_, problemOf(failure));
    }

    std::string file_;
    bool isFrame_;
    UInt64 editUnits_;
};

/// Sound that goes on with silence for as long as it is asked.
class EndlessWave : public OfFile<WaveAnalyzer>
{
public:
    using OfFile<WaveAnalyzer>::OfFile;

    bool done() override { return false; }

    bool nextEditUnit(GenericContainer::EditUnit & unit) override
    {
        if (OfFile<WaveAnalyzer>::nextEditUnit(unit))
            return true;
        unit.duration = Templates::Rational<int>(1) / editRate();
        fillNullEssence(unit);
        unit.valid = true;
        return true;
    }
};

/// The pictures in a folder, if there are any.
std::vector<std::string> picturesIn(std::string const & folder)
{
    std::vector<std::string> files = JPEG2000Analyzer::filesIn(folder);
    if (files.empty())
        refuse(folder, "is a folder without files");
    if (!hasAt(headOf(files.front()), 0, CODESTREAM_START))
        refuse(folder, "is a folder that doesn't begin with a JPEG 2000 codestream, but with " +
                           fs::path(files.front()).filename().string());
    return files;
}

Templates::SharedPtr<DataIO::SliceSource> sourceOf(std::string const & file)
{
    return Templates::SharedPtr<DataIO::SliceSource>(
        new DataIO::File::FileSliceSource(Platform::stringToWstring(file.c_str()).c_str(), SLICE_SIZE, SLICE_SIZE));
}

}

InputKind recogniseInput(std::string const & file)
{
    std::error_code ignored;
    if (fs::is_directory(file, ignored))
    {
        picturesIn(file);
        return InputKind::JPEG_2000;
    }

    std::string const head = headOf(file);
    if (isRIFF(head, "WAVE"))
        return InputKind::WAVE;
    if (isMPEGVideo(head))
        return InputKind::MPEG2_VIDEO;
    if (head.empty())
        refuse(file, "is empty");
    if (hasAt(head, 0, CODESTREAM_START))
        refuse(file, "is a single JPEG 2000 codestream, and pictures are taken by the folder");
    refuse(file, "is neither a wave file nor a stream of MPEG-2 video");
}

WrapInput::WrapInput(std::string file, InputKind kind, TakenAs takenAs) : file_(std::move(file)), kind_(kind), size_(0)
{
    if (isPicture())
        openPictures(takenAs == TakenAs::CLIP);
    else
        openSound(takenAs);
}

void WrapInput::openPictures(bool isClip)
{
    Labels::WrapKind const wrapKind = isClip ? Labels::CLIP : Labels::FRAME;
    if (kind_ == InputKind::JPEG_2000)
    {
        std::vector<std::string> const files = picturesIn(file_);
        for (std::string const & picture : files)
            size_ += fs::file_size(picture);
        analyzer_ = Analyzer(new OfFile<JPEG2000Analyzer>(file_, files, wrapKind));
    }
    else
    {
        size_ = fs::file_size(file_);
        analyzer_ = Analyzer(new OfFile<MPEG2VideoAnalyzer>(file_, sourceOf(file_), wrapKind));
    }
    if (!analyzer_->preload())
        refuse(file_, "holds no pictures");
    isLeft_ = [analyzer = analyzer_.get()]
    {
        return !analyzer->done();
    };
}

void WrapInput::openSound(TakenAs takenAs)
{
    Labels::WrapKind const wrapKind = takenAs == TakenAs::CLIP ? Labels::CLIP : Labels::FRAME;
    size_ = fs::file_size(file_);
    std::unique_ptr<WaveAnalyzer> opened;
    if (takenAs == TakenAs::FRAMES_BESIDE_PICTURES)
        opened = std::make_unique<EndlessWave>(file_, sourceOf(file_), wrapKind);
    else
        opened = std::make_unique<OfFile<WaveAnalyzer>>(file_, sourceOf(file_), wrapKind);

    WaveAnalyzer * const wave = opened.get();
    analyzer_ = Analyzer(opened.release());
    if (!wave->preload() || wave->WaveAnalyzer::done())
        refuse(file_, "holds no sound");
    if (wave->channelsInStream() > MOST_CHANNELS)
        refuse(file_,
               fmt::format("has {} channels, and a track takes {} at most", wave->channelsInStream(), MOST_CHANNELS));
    wave->fillLastEditUnit(true); // an index counts in whole ones
    isLeft_ = [wave]
    {
        return !wave->WaveAnalyzer::done();
    };
}

std::optional<Templates::Rational<int>> WrapInput::rate() const
{
    if (kind_ != InputKind::MPEG2_VIDEO)
        return std::nullopt;
    return analyzer_->editRate();
}

}}
