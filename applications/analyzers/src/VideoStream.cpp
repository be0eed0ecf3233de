#include "VideoStream.h"

#include "Exceptions/InvalidFormat.h"
#include "Exceptions/NotEnoughData.h"

#include <utility>

namespace Vantry { namespace Analyzers {

namespace {

// The start code of a sequence header, the first byte lowest.
unsigned int const SEQUENCE_HEADER_WORD = 0xB3010000;
unsigned int const WHOLE_WORD = 0xFFFFFFFF;

// Ten times what the highest level allows. What doesn't end by then is no
// video, and isn't to fill the memory.
UInt64 const LARGEST_FRAME = 20 << 20;

std::string hexOf(unsigned char value)
{
    static char const DIGITS[] = "0123456789ABCDEF";
    return {DIGITS[value >> 4], DIGITS[value & 15], 'h'};
}

}

VideoStream::VideoStream(Templates::SharedPtr<DataIO::SliceSource> source) :
    reader_(std::move(source)), codes_(reader_), isAtCode_(false), pictureOffset_(0), slicesAhead_(0), lastRows_{}
{
}

bool VideoStream::start(UInt64 maximumToSkip)
{
    return DataIO::SyncWordFinder(reader_, SEQUENCE_HEADER_WORD, WHOLE_WORD).find(maximumToSkip);
}

bool VideoStream::next(CodedFrame & frame)
{
    frame.offset = reader_.absoluteOffset();
    picture_.reset();
    while (isAtCode_ || codes_.find(frame.offset + LARGEST_FRAME, frame.data))
    {
        isAtCode_ = isNextFrame(frame);
        if (isAtCode_)
        {
            checkComplete(frame);
            lastRow() = codes_.row();
            return true;
        }
        takeHeader(frame);
        reader_.read(StartCodes::SIZE, frame.data);
    }
    if (!reader_.endOfStream())
        fail("frame of more than 20 MiB", frame.offset);
    if (frame.pictures == 0)
        return false;
    checkComplete(frame);
    checkEnd();
    return true;
}

// Whether the start code begins another frame than that which was begun.
bool VideoStream::isNextFrame(CodedFrame const & frame) const
{
    switch (codes_.value())
    {
    case SEQUENCE_HEADER:
    case GROUP:
        return frame.pictures != 0;
    case PICTURE:
        return frame.pictures == 2 || (frame.pictures == 1 && frame.picture.structure == PictureStructure::FRAME);
    default:
        return false;
    }
}

void VideoStream::takeHeader(CodedFrame & frame)
{
    switch (codes_.value())
    {
    case SEQUENCE_HEADER:
        return takeSequenceHeader(frame);
    case GROUP:
        frame.sequenceHeaderSize = reader_.absoluteOffset() - frame.offset;
        return frame.group.emplace().read(peek(GroupHeader::SIZE));
    case PICTURE:
        return takePicture(frame);
    case EXTENSION:
        return takeExtension(frame);
    default:
        if (codes_.value() >= FIRST_SYSTEM_CODE)
            failHere("start code " + hexOf(codes_.value()) + " of a multiplex");
    }
}

void VideoStream::takeSequenceHeader(CodedFrame & frame)
{
    frame.hasSequenceHeader = true;
    header_.emplace().read(peek(SequenceHeader::SIZE));
}

void VideoStream::takePicture(CodedFrame & frame)
{
    closePicture(frame);
    checkFormat();
    pictureOffset_ = reader_.absoluteOffset();
    slicesAhead_ = codes_.slices();
    if (!picture_.emplace().read(peek(PictureHeader::SIZE)))
        failHere("picture of no known type");
    if (frame.pictures == 0)
    {
        frame.picture = *picture_;
        if (!frame.group)
            frame.sequenceHeaderSize = pictureOffset_ - frame.offset;
    }
    ++frame.pictures;
}

void VideoStream::takeExtension(CodedFrame & frame)
{
    DataIO::Slice const start = peek(1);
    unsigned int const kind = *start.begin() >> 4;
    if (kind == SEQUENCE_EXTENSION && header_ && !picture_)
        header_->readExtension(peek(SequenceHeader::EXTENSION_SIZE));
    if (kind != PICTURE_CODING_EXTENSION || !picture_)
        return;

    if (!picture_->readExtension(peek(PictureHeader::EXTENSION_SIZE)))
        failHere("picture of no known structure");
    if (frame.pictures == 1)
        frame.picture = *picture_;
    else if (picture_->structure == frame.picture.structure || picture_->structure == PictureStructure::FRAME)
        fail("picture that isn't the second field of its frame", pictureOffset_);
}

// What a sequence header says is known where the first picture follows it.
void VideoStream::checkFormat()
{
    if (!header_)
        return;

    if (!header_->hasExtension)
        failHere("picture without a sequence extension ahead of it, as in MPEG-1 video,");
    if (header_->width == 0 || header_->height == 0 || header_->chromaFormat == 0 || !header_->frameRate())
        failHere("picture of no size, chroma format or frame rate that there is");
    if (!format_)
        format_ = header_;
    else if (!format_->agreesWith(*header_))
        failHere("picture of another size, chroma format or frame rate than the first");
    header_.reset();
}

void VideoStream::closePicture(CodedFrame const & frame)
{
    if (frame.pictures != 0 && codes_.slices() == slicesAhead_)
        fail("picture without slices", pictureOffset_);
    if (picture_ && !picture_->hasExtension)
        fail("picture without coding extension", pictureOffset_);
}

void VideoStream::checkComplete(CodedFrame const & frame)
{
    closePicture(frame);
    if (frame.pictures == 1 && frame.picture.structure != PictureStructure::FRAME)
        fail("field without a second one", pictureOffset_);
}

// All pictures end in the same row, unless the stream was cut.
void VideoStream::checkEnd()
{
    if (codes_.row() < lastRow())
        failHere("picture that is cut off");
}

unsigned char & VideoStream::lastRow()
{
    return lastRows_[picture_->structure == PictureStructure::FRAME ? 1 : 0];
}

// The bytes behind the start code, which are left there.
DataIO::Slice VideoStream::peek(UInt64 size)
try
{
    Templates::auto_ptr<DataIO::Slice> bytes = reader_.readAligned(StartCodes::SIZE + size);
    DataIO::Slice header(*bytes);
    reader_.unget(bytes);
    header.cropBegin(StartCodes::SIZE);
    return header;
}
catch (Exceptions::NotEnoughData const &)
{
    failHere("header that is cut off");
}

void VideoStream::fail(std::string const & what, UInt64 offset) const
{
    std::string const text = "MPEG-2 video has a " + what + " at byte " + std::to_string(offset);
    throw Exceptions::InvalidFormat(text.c_str(), __FILE__, __LINE__);
}

}}
