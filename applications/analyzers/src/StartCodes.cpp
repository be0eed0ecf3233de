#include "StartCodes.h"

#include "DataIO/SyncResult.h"

#include <algorithm>

namespace Vantry { namespace Analyzers {

namespace {

// As much as is asked of the reader at once: it stays in the processor's
// cache from the file to the search and on to the file that is written.
UInt64 const SLICE_SIZE = 1 << 18;

// 00 00 01 and any value, the first byte lowest.
unsigned int const WORD = 0x00010000;
unsigned int const MASK = 0x00FFFFFF;

// Values of slices.
unsigned char const FIRST_SLICE = 0x01;
unsigned char const LAST_SLICE = 0xAF;

}

StartCodes::StartCodes(DataIO::SliceReader & reader) :
    reader_(reader), finder_(reader, WORD, MASK), value_(0), slices_(0)
{
}

bool StartCodes::find(DataIO::Chain & passed)
{
    while (!reader_.endOfStream())
        if (findInSlice(passed))
            return true;
    return false;
}

bool StartCodes::findInSlice(DataIO::Chain & passed)
{
    Templates::auto_ptr<DataIO::Slice> slice = reader_.nextSlice(SLICE_SIZE);
    unsigned char const * at = slice->begin();
    unsigned char const * const end = slice->end();
    while (end - at >= static_cast<std::ptrdiff_t>(SIZE))
    {
        unsigned char const * const code = finder_.findWindow(at, end);
        if (code == end)
        {
            at = end - (SIZE - 1);
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

    // The last bytes may begin a code that goes on in the next slice.
    UInt64 const rest = static_cast<UInt64>(end - at);
    reader_.unget(slice->splice(at));
    passed.push_back(slice);
    return findAtSeam(rest, passed);
}

bool StartCodes::findAtSeam(UInt64 size, DataIO::Chain & passed)
{
    DataIO::SyncResult result;
    bool const isCode = size != 0 && finder_.find(size, result);
    passed.push_back(result.skipped);
    if (!isCode)
        return false;
    if (isWanted(static_cast<unsigned char>(result.word >> 24)))
        return true;
    reader_.read(SIZE, passed);
    return false;
}

bool StartCodes::isWanted(unsigned char value) noexcept
{
    if (value >= FIRST_SLICE && value <= LAST_SLICE)
    {
        ++slices_;
        return false;
    }
    value_ = value;
    return true;
}

}}
