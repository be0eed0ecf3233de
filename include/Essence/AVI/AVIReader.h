#pragma once

#include "Essence/AVI/AVIRecords.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry {

namespace DataIO {
class Chain;
class SliceReader;
}

namespace Essence { namespace AVI {

/// Walks a RIFF AVI stream, also one of several RIFF chunks (OpenDML), and
/// gives the chunks of its streams, uncopied.
///
///     "RIFF" size "AVI "
///         "LIST" size "hdrl": "avih", and for each stream
///             "LIST" size "strl": "strh", "strf" and more
///         "LIST" size "movi": the chunks of the streams
///         "idx1"
///     "RIFF" size "AVIX"
///         "LIST" size "movi"
///
/// Values have an even number of bytes, the last of which their size may
/// leave out. The reader is lent and outlives this one.
class VANTRY_EXPORT AVIReader
{
public:
    VANTRY_CLASS_ALLOCATION

    /// Reads nothing yet.
    ///
    /// \throws Exceptions::BadAlloc.
    explicit AVIReader(DataIO::SliceReader & reader);
    AVIReader(AVIReader const &) = delete;
    AVIReader & operator=(AVIReader const &) = delete;
    ~AVIReader();

    /// Reads up to the first chunk of a stream and returns the main header,
    /// which lives as long as this object. Null for a stream that is no AVI,
    /// has a known chunk where it can't stand, or ends ahead of its data.
    /// Unknown chunks are passed over.
    ///
    /// \throws Exceptions::IOError when the medium fails.
    MainHeader const * initialize();

    /// How many streams there are.
    unsigned int streamCount() const noexcept;

    /// What stream `n` is, the first being 0.
    ///
    /// \throws Exceptions::IndexOutOfBounds "Invalid AVI stream."
    STREAMInfo info(unsigned int n) const;

    /// Appends the value of the next chunk of a stream to `chain` and tells
    /// its four characters as a number, the first one lowest; false at the
    /// end, and where the value is cut off.
    ///
    /// \throws Exceptions::IOError when the medium fails.
    bool read(unsigned int & id, DataIO::Chain & chain);

    /// Whether stream numbers are the last two characters of a chunk's
    /// identifier rather than the first two.
    void rotateStreamNumberMask(bool rotate) noexcept;
    bool rotateStreamNumberMask() const noexcept;

private:
    class Impl;
    Impl * impl_;
};

}}
}
