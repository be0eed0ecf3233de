#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace DataIO {

class SliceReader;
struct SyncResult;

/// Looks for a start code of four bytes, some of whose bits may not matter.
/// No byte is copied on the way, and the code may lie across slices.
///
/// Four bytes make a number, the first one lowest. They match where the
/// number and the mask give the sync word: 00 00 01 with any fourth byte is
/// the word 00010000h under the mask 00FFFFFFh.
class VANTRY_EXPORT SyncWordFinder
{
public:
    VANTRY_CLASS_ALLOCATION

    static constexpr unsigned int SYNC_WORD_SIZE = 4;
    static constexpr unsigned int WINDOW_SIZE = 8;

    /// The reader is lent.
    SyncWordFinder(SliceReader & reader, unsigned int syncWord, unsigned int mask);

    /// Looks for the first match that starts up to `maximumBytes` bytes from
    /// here, and leaves the reader there. Where there is none, the reader has
    /// passed `maximumBytes` bytes, or stands at the end of the stream if that
    /// left no room for another match.
    ///
    /// \throws Exceptions::IOError when the medium fails, the reader then
    ///         stands where it was; Exceptions::BadAlloc.
    bool find(UInt64 maximumBytes, SyncResult & result);

    /// The same, dropping what it passes.
    bool find(UInt64 maximumBytes);

    /// The first match that lies in four bytes or more, or `end`.
    unsigned char const * findWindow(unsigned char const * begin, unsigned char const * end) const;

private:
    SliceReader & reader_;
    UInt32 mask_;
    UInt32 syncWord_;
};

}}
