#include "MXFFileSink.h"

#include <algorithm>

namespace Vantry { namespace Application {

namespace {

// Enough for calls to the system not to count, and little enough to lie in the
// processor's cache since it was read.
UInt64 const MOST_HELD = 1 << 19;

}

void MXFFileSink::append(DataIO::Chain & unit)
{
    for (DataIO::Slice const & slice : unit)
    {
        file_.append(slice.begin(), slice.size());
        held_ += slice.size();
    }
    units_.push_back(unit);
    position_ = file_.size();
    if (held_ >= MOST_HELD)
        flush();
}

void MXFFileSink::flush()
{
    file_.flush();
    units_.clear();
    held_ = 0;
}

void MXFFileSink::close()
{
    flush();
    file_.close();
}

// What goes in between is small.
void MXFFileSink::write(unsigned char const * source, UInt64 howMuch)
{
    flush();
    UInt64 const over = std::min(howMuch, file_.size() - position_);
    if (over != 0)
        file_.overwrite(position_, source, over);
    file_.append(source + over, howMuch - over);
    file_.flush();
    position_ += howMuch;
}

UInt64 MXFFileSink::seek(UInt64 position)
{
    position_ = std::min(position, file_.size());
    return position_;
}

}}
