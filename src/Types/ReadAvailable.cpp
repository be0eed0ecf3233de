#include "Types/ReadAvailable.h"

#include "KLV/Value.h"

#include <algorithm>

namespace Vantry { namespace Types {

Platform::UInt64 readAvailable(KLV::Value & source, unsigned char * destination, Platform::UInt64 howMuch)
{
    Platform::UInt64 done = 0;
    while (done < howMuch)
    {
        Platform::UInt64 const got = source.read(destination + done, howMuch - done);
        if (got == 0)
            break;
        done += got;
    }
    return done;
}

void appendAvailable(KLV::Value & source, Templates::vector<unsigned char> & bytes)
{
    Platform::UInt64 const FIRST_STEP = 1 << 16;

    for (Platform::UInt64 rest = source.remaining(); rest != 0; rest = source.remaining())
    {
        // What is there already vouches for a step of the same size.
        Platform::UInt64 const step = std::min(rest, std::max<Platform::UInt64>(FIRST_STEP, bytes.size()));
        std::size_t const before = bytes.size();
        bytes.resize(before + step);
        Platform::UInt64 const got = readAvailable(source, bytes.data() + before, step);
        bytes.resize(before + got);
        if (got < step)
            return;
    }
}

}}
