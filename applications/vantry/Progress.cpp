#include "Progress.h"

#include <algorithm>
#include <fmt/format.h>

#include <unistd.h>

namespace Vantry { namespace Application {

namespace {

std::chrono::milliseconds const PERIOD(100);
int const WIDTH = 40;

void write(std::string const & text)
{
    std::fwrite(text.data(), 1, text.size(), stderr);
}

}

// A job that is over soon shows nothing.
Progress::Progress(UInt64 total, bool quiet) :
    total_(std::max<UInt64>(total, 1)),
    isShown_(!quiet && ::isatty(STDERR_FILENO) != 0),
    next_(std::chrono::steady_clock::now() + 3 * PERIOD)
{
}

Progress::~Progress()
{
    if (isShown_)
        write("\r\033[K");
}

void Progress::show(UInt64 done)
{
    if (!isShown_ || std::chrono::steady_clock::now() < next_)
        return;

    next_ = std::chrono::steady_clock::now() + PERIOD;
    double const part = std::min(1.0, double(done) / double(total_));
    int const filled = static_cast<int>(part * WIDTH);
    write(fmt::format("\r[{:#<{}}{:.<{}}] {:3.0f} %", "", filled, "", WIDTH - filled, part * 100));
}

}}
