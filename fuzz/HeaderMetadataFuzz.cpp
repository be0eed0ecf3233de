// Loads any bytes as header metadata by the built-in schema, and writes what
// it loaded in each order: in the size that it tells, the same sets in all of
// them, and in the end as it was loaded.

#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/InvalidLocalTag.h"
#include "Exceptions/InvalidStructure.h"
#include "Exceptions/NotFound.h"
#include "Metadata/Element.h"
#include "support/HeaderMetadata.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <set>

namespace {

using namespace Vantry;
using Tests::Bytes;
using Tests::HeaderMetadata;
using Order = Metadata::PartitionMetadata::SerializationOrder;

void demand(bool condition)
{
    if (!condition)
        std::abort();
}

// What is written, or nothing when sets don't allow the order.
Bytes written(HeaderMetadata const & header, Order order)
{
    try
    {
        Bytes bytes = header.written(order);
        demand(bytes.size() == header->serializedSize(true, true));
        return bytes;
    }
    catch (Exceptions::InvalidFormat const &)
    {
        // Sets are owned twice, or have one identifier.
    }
    catch (Exceptions::InvalidStructure const &)
    {
        // Not one Preface.
    }
    catch (Exceptions::NotFound const &)
    {
        // No Preface.
    }
    catch (Exceptions::InvalidLocalTag const &)
    {
        // The primer is full.
    }
    return {};
}

std::multiset<Bytes> packets(Bytes const & bytes)
{
    std::multiset<Bytes> all;
    Tests::forEachPacket(bytes,
                         [&](KLV::Packet const & packet)
                         {
                             auto const begin = bytes.begin() + static_cast<std::ptrdiff_t>(packet.keyAbsoluteOffset());
                             all.emplace(begin, begin + static_cast<std::ptrdiff_t>(packet.klvLength()));
                         });
    return all;
}

Bytes rewritten(Bytes const & bytes)
{
    return written(HeaderMetadata(bytes), Order::PrefaceFirst);
}

// By key there may be but one Preface; the other orders take the first.
void checkOrder(HeaderMetadata const & header, Order order)
{
    Bytes const bytes = written(header, order);
    Bytes const byKey = written(header, Order::PrefaceFirst);
    if (!bytes.empty() && !byKey.empty())
        demand(packets(bytes) == packets(byKey));
}

void check(HeaderMetadata const & header)
{
    Bytes const first = written(header, Order::PrefaceFirst);
    if (!first.empty())
    {
        // A value that was cut off is whole once it is written: it may be of
        // its type then, and count as such.
        Bytes const whole = rewritten(first);
        demand(whole.empty() || rewritten(whole) == whole);
    }
    for (Order const order : {Order::ForwardDepthFirst, Order::ForwardBySiblings, Order::NormalizedForward,
                              Order::NormalizedReversed, Order::NormalizedReversedExperimentalFirst})
        checkOrder(header, order);
}

// Null when the primer pack can't be read.
std::unique_ptr<HeaderMetadata> loaded(Bytes const & bytes)
{
    try
    {
        return std::make_unique<HeaderMetadata>(bytes);
    }
    catch (Exceptions::InvalidLength const &)
    {
    }
    catch (Exceptions::InvalidFormat const &)
    {
    }
    return nullptr;
}

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    auto const header = loaded(Bytes(data, data + size));
    if (header != nullptr && *header)
        check(*header);
    return 0;
}
