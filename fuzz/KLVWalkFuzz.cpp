// Walks any bytes packet by packet, over what is no packet too: the walk goes
// forward, says the same whatever the source gives at a read, and leaves the
// source where the packets say.

#include "Exceptions/InvalidFormat.h"
#include "Exceptions/KeyNotFound.h"
#include "Exceptions/NotEnoughData.h"
#include "KLV/Reader.h"
#include "support/BytesSource.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <tuple>
#include <vector>

namespace {

using namespace Vantry;

UInt64 const SEARCH_LIMIT = 64;

// Key offset, length and skipped bytes of a packet.
using Step = std::tuple<UInt64, UInt64, UInt64>;

void demand(bool condition)
{
    if (!condition)
        std::abort();
}

UInt64 endOf(KLV::Packet const & packet, UInt64 sourceSize)
{
    UInt64 const start = packet.keyAbsoluteOffset() + 16 + packet.berLength();
    return packet.length() < sourceSize - start ? start + packet.length() : sourceSize;
}

// Takes the next packet, after a peek for every other one, and reads a little
// of its value.
Step takePacket(KLV::Reader & reader, UInt64 sourceSize, bool peek)
{
    UInt64 const start = reader.source().absoluteOffset();
    UInt64 skipped = 0, skippedByPeek = 0;
    if (peek)
        reader.peekNextKey(skippedByPeek, SEARCH_LIMIT);

    Templates::auto_ptr<KLV::Packet> packet = reader.nextKLV(skipped, SEARCH_LIMIT);
    demand(!peek || skipped == 0);
    skipped += skippedByPeek;
    demand(skipped <= SEARCH_LIMIT && packet->keyAbsoluteOffset() == start + skipped);

    unsigned char bytes[3];
    demand(packet->value().read(bytes, sizeof bytes) <= packet->length());

    UInt64 const end = endOf(*packet, sourceSize);
    Step const step(packet->keyAbsoluteOffset(), packet->length(), skipped);
    packet.reset();
    demand(reader.source().absoluteOffset() == end);
    return step;
}

std::vector<Step> walk(Tests::BytesSource source)
{
    UInt64 const size = source.remaining();
    KLV::Reader reader(source);
    std::vector<Step> steps;
    for (bool peek = false;; peek = !peek)
    {
        UInt64 const before = source.absoluteOffset();
        try
        {
            steps.push_back(takePacket(reader, size, peek));
        }
        catch (Exceptions::NotEnoughData const &)
        {
            demand(source.endOfStream());
            return steps;
        }
        catch (Exceptions::KeyNotFound const &)
        {
        }
        catch (Exceptions::InvalidFormat const &)
        {
        }
        demand(source.absoluteOffset() > before);
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    Tests::Bytes const bytes(data, data + size);
    std::vector<Step> const steps = walk(Tests::BytesSource(bytes));
    for (UInt64 mostPerRead : {1, 3, 7})
        demand(walk(Tests::BytesSource(bytes, mostPerRead)) == steps);
    return 0;
}
