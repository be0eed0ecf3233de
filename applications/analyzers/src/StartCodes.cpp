#include "StartCodes.h"

#include "DataIO/Chain.h"

#include <algorithm>

namespace Vantry { namespace Analyzers {

namespace {

// As much as is asked of the reader at once: it stays in the processor's
// cache from the file to the search and on to the file that is written.
UInt64 const SLICE_SIZE = 1 << 18;

// Where slices are shorter than what a start code may lie across, so many
// bytes are joined.
UInt64 const JOINED_SIZE = 4096;

// As many bytes of a start code may lie ahead of a seam, and behind it.
UInt64 const OVERLAP = StartCodes::SIZE - 1;

// 00 00 01 and any value, the first byte lowest.
unsigned int const WORD = 0x00010000;
unsigned int const MASK = 0x00FFFFFF;

// Values of slices.
unsigned char const FIRST_SLICE = 0x01;
unsigned char const LAST_SLICE = 0xAF;

}

StartCodes::StartCodes(DataIO::SliceReader & reader) :
    reader_(reader), finder_(reader, WORD, MASK), value_(0), slices_(0), row_(0)
{
}

bool StartCodes::find(UInt64 limit, DataIO::Chain & passed)
{
    while (!reader_.endOfStream() && reader_.absoluteOffset() < limit)
        if (findInSlice(passed))
            return true;
    return false;
}

bool StartCodes::findInSlice(DataIO::Chain & passed)
{
    Templates::auto_ptr<DataIO::Slice> slice = nextSlice();
    unsigned char const * at = slice->begin();
    unsigned char const * const end = slice->end();
    while (end - at >= static_cast<std::ptrdiff_t>(SIZE))
    {
        unsigned char const * const code = finder_.findWindow(at, end);
        if (code == end)
        {
            at = end - OVERLAP;
            break;
        }
        if (isWanted(code[SIZE - 1]))
        {
            reader_.unget(slice->splice(code));
            passed.push_back(slice);
            return true;
        }
        at = code + SIZE;
    }
    return findAtSeam(slice, static_cast<UInt64>(end - at), passed);
}

// The last `size` bytes of the slice may begin a code that ends in the next
// one. Neither is cut unless there is one, so that few pieces are made.
bool StartCodes::findAtSeam(Templates::auto_ptr<DataIO::Slice> slice, UInt64 size, DataIO::Chain & passed)
{
    Templates::auto_ptr<DataIO::Slice> following = nextSlice();
    unsigned char window[2 * OVERLAP];
    unsigned char * end = std::copy_n(slice->end() - size, size, window);
    end = std::copy_n(following->begin(), std::min(following->size(), OVERLAP), end);
    reader_.unget(following);

    bool const isLongEnough = end - window >= static_cast<std::ptrdiff_t>(SIZE);
    unsigned char const * const code = isLongEnough ? finder_.findWindow(window, end) : end;
    if (code == end)
    {
        passed.push_back(slice);
        return false;
    }

    bool const isFound = isWanted(code[SIZE - 1]);
    reader_.unget(slice->splice(slice->end() - size + (code - window)));
    passed.push_back(slice);
    if (!isFound)
        reader_.read(SIZE, passed);
    return isFound;
}

// A slice of three bytes or more, but for the end of the stream.
Templates::auto_ptr<DataIO::Slice> StartCodes::nextSlice()
{
    Templates::auto_ptr<DataIO::Slice> slice = reader_.nextSlice(SLICE_SIZE);
    if (slice->size() >= OVERLAP)
        return slice;
    reader_.unget(slice);
    return reader_.read(JOINED_SIZE);
}

bool StartCodes::isWanted(unsigned char value) noexcept
{
    if (value >= FIRST_SLICE && value <= LAST_SLICE)
    {
        ++slices_;
        row_ = value;
        return false;
    }
    value_ = value;
    return true;
}

}}
