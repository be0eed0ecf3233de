#pragma once

#include "DataIO/Chain.h"
#include "DataIO/SliceReader.h"
#include "StartCodes.h"
#include "VideoHeaders.h"

#include <optional>
#include <string>

namespace Vantry { namespace Analyzers {

/// A frame as it is coded: one picture or two fields, with the headers ahead
/// of it and all up to the next frame.
struct CodedFrame
{
    DataIO::Chain data;

    /// Where it begins in the stream.
    UInt64 offset = 0;

    bool hasSequenceHeader = false;
    std::optional<GroupHeader> group;

    /// Bytes ahead of the group header or, if there is none, the picture.
    UInt64 sequenceHeaderSize = 0;

    /// The picture, or the first field.
    PictureHeader picture;
    unsigned int pictures = 0;
};

/// Cuts an elementary stream of MPEG-2 video into frames.
class VideoStream
{
public:
    explicit VideoStream(Templates::SharedPtr<DataIO::SliceSource> source);

    /// Goes to the first sequence header, which lies up to so many bytes from
    /// the start.
    ///
    /// \return false when there is none
    bool start(UInt64 maximumToSkip);

    /// Reads the next frame into a fresh one.
    ///
    /// \return false at the end of the stream
    /// \throws Exceptions::InvalidFormat for a stream that is damaged or no
    ///         MPEG-2 video any more; the message tells where.
    bool next(CodedFrame & frame);

    bool ended() const { return reader_.endOfStream(); }

    /// The first sequence header, once a frame was read.
    SequenceHeader const & format() const noexcept { return *format_; }

private:
    bool isNextFrame(CodedFrame const & frame) const;
    void takeHeader(CodedFrame & frame);
    void takeSequenceHeader(CodedFrame & frame);
    void takePicture(CodedFrame & frame);
    void takeExtension(CodedFrame & frame);
    void checkFormat();
    void closePicture(CodedFrame const & frame);
    void checkComplete(CodedFrame const & frame);
    void checkEnd();
    unsigned char & lastRow();
    DataIO::Slice peek(UInt64 size);
    [[noreturn]] void fail(std::string const & what, UInt64 offset) const;
    [[noreturn]] void failHere(std::string const & what) const { fail(what, reader_.absoluteOffset()); }

    DataIO::SliceReader reader_;
    StartCodes codes_;
    bool isAtCode_;
    std::optional<SequenceHeader> format_;
    std::optional<SequenceHeader> header_;

    // The picture that is being read, which may be a second field.
    std::optional<PictureHeader> picture_;
    UInt64 pictureOffset_;
    UInt64 slicesAhead_;

    // In which the last slice of a field begins, and of a frame; 0 while there
    // was none.
    unsigned char lastRows_[2];
};

}}
