#include "DataIO/SyncWordFinder.h"

#include "DataIO/MaskedWord.h"
#include "DataIO/SliceReader.h"
#include "DataIO/SyncResult.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace DataIO {

namespace {

using Byte = unsigned char;

// As much as is asked of the reader at once.
UInt64 const SLICE_SIZE = 65536;

// As much as is passed before it is dropped.
UInt64 const STRIDE = 1 << 20;

// As many bytes of a start code may lie ahead of a seam.
UInt64 const OVERLAP = SyncWordFinder::SYNC_WORD_SIZE - 1;

// Goes through slices as if they were one.
class Scan
{
public:
    explicit Scan(MaskedWord const & word) noexcept : word_(word) {}

    // The next slice: whether it has the end of a match.
    bool find(Slice const & slice) noexcept
    {
        Byte * const windowEnd = std::copy_n(slice.begin(), std::min(slice.size(), OVERLAP), window_ + kept_);
        if (findIn(window_, windowEnd, position_ - kept_) || findIn(slice.begin(), slice.end(), position_))
            return true;

        position_ += slice.size();
        if (slice.size() < OVERLAP)
            keepLast(window_, windowEnd);
        else
            keepLast(slice.begin(), slice.end());
        return false;
    }

    // The bytes ahead of the match, or all that were gone through.
    UInt64 position() const noexcept { return position_; }

    UInt32 match() const noexcept { return match_; }

private:
    bool findIn(Byte const * begin, Byte const * end, UInt64 position) noexcept
    {
        Byte const * const match = word_.find(begin, end);
        if (match == end)
            return false;
        position_ = position + static_cast<UInt64>(match - begin);
        match_ = MaskedWord::load(match);
        return true;
    }

    void keepLast(Byte const * begin, Byte const * end) noexcept
    {
        kept_ = std::min(static_cast<UInt64>(end - begin), OVERLAP);
        std::copy(end - kept_, end, window_);
    }

    MaskedWord const word_;
    UInt64 position_ = 0;
    UInt32 match_ = 0;

    // The last bytes of the slices so far, and room for those that follow.
    Byte window_[SyncWordFinder::WINDOW_SIZE] = {};
    UInt64 kept_ = 0;
};

// Slices that were gone through. What isn't taken away goes back to the
// reader in the end.
class GoneThrough
{
public:
    explicit GoneThrough(SliceReader & reader) : reader_(reader) {}
    GoneThrough(GoneThrough const &) = delete;
    GoneThrough & operator=(GoneThrough const &) = delete;
    ~GoneThrough() { reader_.unget(chain); }

    Chain chain;

private:
    SliceReader & reader_;
};

}

SyncWordFinder::SyncWordFinder(SliceReader & reader, unsigned int syncWord, unsigned int mask) :
    reader_(reader), mask_(mask), syncWord_(syncWord)
{
}

bool SyncWordFinder::find(UInt64 maximumBytes, SyncResult & result)
{
    result.found = false;

    UInt64 const most = std::numeric_limits<UInt64>::max() - SYNC_WORD_SIZE;
    UInt64 const budget = std::min(maximumBytes, most) + SYNC_WORD_SIZE;
    Scan scan(MaskedWord(syncWord_, mask_));
    GoneThrough through(reader_);

    while (scan.position() < budget && !reader_.endOfStream())
    {
        UInt64 const rest = budget - scan.position();
        Templates::auto_ptr<Slice> slice = reader_.nextSlice(SLICE_SIZE);
        if (slice->size() > rest)
            reader_.unget(slice->splice(slice->begin() + rest));

        bool const found = scan.find(*slice);
        through.chain.push_back(slice);
        if (found)
        {
            through.chain.chopBegin(scan.position(), result.skipped);
            result.word = scan.match();
            result.found = true;
            return true;
        }
    }

    // A stream that ends early has no room for a match in what is left.
    through.chain.chopBegin(scan.position() < budget ? scan.position() : maximumBytes, result.skipped);
    return false;
}

bool SyncWordFinder::find(UInt64 maximumBytes)
{
    for (;;)
    {
        SyncResult passed;
        UInt64 const stride = std::min(maximumBytes, STRIDE);
        if (find(stride, passed))
            return true;
        if (stride == maximumBytes || reader_.endOfStream())
            return false;
        maximumBytes -= stride;
    }
}

unsigned char const * SyncWordFinder::findWindow(unsigned char const * begin, unsigned char const * end) const
{
    return MaskedWord(syncWord_, mask_).find(begin, end);
}

}}
