#pragma once

#include "DataIO/Chain.h"
#include "DataIO/SliceReader.h"
#include "Essence/AVI/AVIReader.h"

namespace Vantry { namespace Analyzers {

/// What one stream of an AVI file holds, its chunks one behind the other and
/// uncopied: to be analyzed like an elementary stream.
///
/// Those of other streams are read and dropped.
class AVIStream : public DataIO::SliceSource
{
public:
    /// Reads the headers.
    ///
    /// \param file    an AVI file, from its start
    /// \param stream  the stream, the first being 0
    /// \throws Exceptions::InvalidFormat when the headers are none of an AVI
    ///         file, or have no such stream.
    /// \throws Exceptions::IOError when the medium fails.
    AVIStream(Templates::SharedPtr<DataIO::SliceSource> file, unsigned int stream);
    ~AVIStream() override;

    /// How many streams the file has.
    unsigned int streams() const { return avi_.streamCount(); }

    /// What this one is.
    Essence::AVI::STREAMInfo const & info() const { return info_; }

    /// A part of a chunk.
    ///
    /// \throws Exceptions::InvalidFormat when the file is cut off or damaged;
    ///         the message tells where.
    Templates::auto_ptr<DataIO::Slice> read(UInt64 howMuch) override;

    /// Counts the bytes of the stream alone.
    UInt64 absoluteOffset() const override { return offset_; }

    bool endOfStream() const override { return pending_.empty(); }
    UInt64 skip(UInt64 howMuch) override;

private:
    void readAhead();
    bool isOurs(unsigned int chunkId) const;
    void checkEnd(bool isInChunk) const;

    DataIO::SliceReader reader_;
    UInt64 claimedSize_;
    Essence::AVI::AVIReader avi_;
    unsigned int const number_;
    Essence::AVI::STREAMInfo info_;

    // Never empty ahead of the end.
    DataIO::Chain pending_;
    UInt64 offset_;
};

}}
