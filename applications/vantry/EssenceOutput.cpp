#include "EssenceOutput.h"

#include "DataIO/Memory/MemoryDataSink.h"
#include "Delivery.h"
#include "EightChannelOutput.h"
#include "Essence/Wave/WaveWriter.h"
#include "Failure.h"
#include "GatheringFile.h"

#include <algorithm>
#include <fmt/format.h>
#include <limits>

namespace Vantry { namespace Application {

namespace fs = std::filesystem;

namespace {

/// The elements one after the other.
class StreamOutput : public EssenceOutput
{
public:
    StreamOutput(fs::path const & path, bool force) :
        delivery_(std::make_unique<Delivery>(path, force)), file_(delivery_->draft(), path)
    {
    }

    /// To standard output.
    StreamOutput() = default;

    void append(unsigned char const * bytes, std::size_t size) override { file_.append(bytes, size); }
    void flush() override { file_.settle(); }
    void complete() override { file_.close(); }
    UInt64 size() const override { return file_.size(); }

    void publish() override
    {
        if (delivery_)
            delivery_->publish();
    }

    std::string name() const override { return delivery_ ? delivery_->target().filename().string() : "-"; }

protected:
    bool canRewind() const { return delivery_ != nullptr; }
    GatheringFile & file() { return file_; }

private:
    std::unique_ptr<Delivery> delivery_;
    GatheringFile file_;
};

/// Sound with the header of a wave file, which gets its length in the end.
class WaveOutput : public StreamOutput
{
public:
    WaveOutput(SoundFormat const & format, fs::path const & path, bool force) :
        StreamOutput(path, force), format_(format)
    {
        writeHeader();
    }

    explicit WaveOutput(SoundFormat const & format) : format_(format) { writeHeader(); }

    void complete() override
    {
        UInt64 const length = size() - headerSize_;
        if (length % 2 != 0)
            file().append(&PAD, 1); // chunks end at even positions
        file().flush();
        if (canRewind())
        {
            std::vector<unsigned char> const final = header(length);
            file().overwrite(0, final.data(), final.size());
        }
        StreamOutput::complete();
    }

private:
    static constexpr unsigned char PAD = 0;
    static constexpr unsigned short PCM_FORMAT_TAG = 1;

    std::vector<unsigned char> header(UInt64 length) const
    {
        DataIO::Memory::MemoryDataSink sink;
        Essence::Wave::WaveWriter writer(sink, format_.bitsPerSample, format_.samplesPerSecond, format_.channels,
                                         PCM_FORMAT_TAG);
        writer.writeHeader(static_cast<unsigned>(std::min<UInt64>(length, std::numeric_limits<unsigned>::max())));
        return {sink.rawBuffer(), sink.rawBuffer() + sink.serializedSize()};
    }

    void writeHeader()
    {
        std::vector<unsigned char> const bytes = header(0);
        headerSize_ = bytes.size();
        file().append(bytes.data(), bytes.size());
        file().settle();
    }

    SoundFormat format_;
    UInt64 headerSize_ = 0;
};

/// A folder with a file for each element.
class PictureFolder : public EssenceOutput
{
public:
    PictureFolder(fs::path const & path, bool force, UInt64 firstNumber) :
        delivery_(path, force), number_(firstNumber), size_(0)
    {
        requireOurs(path);
        std::error_code error;
        if (!fs::create_directory(delivery_.draft(), error))
            throw Failure(ExitStatus::FAILED, path.string(), "can't be made: " + error.message());
    }

    void append(unsigned char const * bytes, std::size_t size) override
    {
        if (!picture_)
            openPicture(fmt::format("{:08}{}", number_, EXTENSION));
        picture_->append(bytes, size);
    }

    void endElement() override
    {
        ++number_;
        if (!picture_)
            return;
        picture_->close();
        size_ += picture_->size();
        picture_.reset();
    }

    void flush() override
    {
        if (picture_)
            picture_->flush();
    }

    void complete() override {}
    void publish() override { delivery_.publish(); }
    std::string name() const override { return delivery_.target().filename().string(); }
    UInt64 size() const override { return size_; }

private:
    static constexpr char const * EXTENSION = ".j2c";

    /// A folder that is replaced mustn't hold anything but pictures.
    static void requireOurs(fs::path const & folder)
    {
        std::error_code ignored;
        for (fs::directory_entry const & entry : fs::directory_iterator(folder, ignored))
            if (entry.path().extension() != EXTENSION)
                throw Failure(ExitStatus::FAILED, folder.string(),
                              "isn't replaced, for it holds " + entry.path().filename().string());
    }

    void openPicture(std::string const & name)
    {
        picture_ = std::make_unique<GatheringFile>(delivery_.draft() / name, delivery_.target() / name);
    }

    Delivery delivery_;
    UInt64 number_;
    UInt64 size_;
    std::unique_ptr<GatheringFile> picture_;
};

}

char const * extensionOf(EssenceForm form)
{
    switch (form)
    {
    case EssenceForm::MPEG2_VIDEO:
        return ".m2v";
    case EssenceForm::AVC:
        return ".h264";
    case EssenceForm::HEVC:
        return ".h265";
    case EssenceForm::JPEG_2000:
        return "";
    case EssenceForm::DV:
        return ".dv";
    case EssenceForm::PCM:
    case EssenceForm::EIGHT_CHANNELS:
        return ".wav";
    case EssenceForm::OTHER:
        break;
    }
    return ".bin";
}

std::unique_ptr<EssenceOutput> makeOutput(EssenceTrack const & track, fs::path const & path, bool force,
                                          UInt64 firstEditUnit)
{
    if (track.form == EssenceForm::JPEG_2000)
        return std::make_unique<PictureFolder>(path, force, firstEditUnit);
    if (track.form == EssenceForm::PCM)
        return std::make_unique<WaveOutput>(track.sound, path, force);
    if (track.form == EssenceForm::EIGHT_CHANNELS)
        return std::make_unique<EightChannelOutput>(track.sound, [path, force](SoundFormat const & format)
                                                    { return std::make_unique<WaveOutput>(format, path, force); });
    return std::make_unique<StreamOutput>(path, force);
}

std::unique_ptr<EssenceOutput> makeStandardOutput(EssenceTrack const & track)
{
    if (track.form == EssenceForm::PCM)
        return std::make_unique<WaveOutput>(track.sound);
    if (track.form == EssenceForm::EIGHT_CHANNELS)
        return std::make_unique<EightChannelOutput>(track.sound, [](SoundFormat const & format)
                                                    { return std::make_unique<WaveOutput>(format); });
    return std::make_unique<StreamOutput>();
}

}}
