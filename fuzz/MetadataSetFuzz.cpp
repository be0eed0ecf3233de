// Loads any bytes into a set that the schema knows and into one that it
// doesn't, with lengths of each size: what is loaded is written in the size
// that it tells, and in the end comes out as it went in.

#include "Exceptions/InvalidLength.h"
#include "Metadata/MetadataSet.h"
#include "support/BytesPacket.h"
#include "support/BytesSink.h"
#include "support/Schema.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace Vantry;
using Tests::Bytes;

// Longer values don't keep their length.
std::size_t const MOST_BYTES = 0xFFFF;

void demand(bool condition)
{
    if (!condition)
        std::abort();
}

Bytes written(Metadata::MetadataSet const & set, Metadata::PartitionDictionary const & dictionary)
{
    Tests::BytesSink sink;
    set.serialize(sink, dictionary, true);
    demand(sink.bytes().size() == set.serializedSize(true));
    return sink.bytes();
}

// The packet that comes out when one is loaded.
Bytes reloaded(Bytes const & bytes)
{
    static Tests::Schema const schema;
    static auto const dictionary = schema.partitionDictionary();
    Tests::BytesPacket packet(bytes);
    Metadata::MetadataSet set((*packet).key(), schema.set((*packet).key()), nullptr);
    try
    {
        set.load(*packet, *dictionary, true);
    }
    catch (Exceptions::InvalidLength const &)
    {
        // What is ahead of the end is there.
    }
    return written(set, *dictionary);
}

void load(KLV::Key const & key, Bytes const & value)
{
    // A value that was cut off is whole once it is written: it may be of its
    // type then.
    Bytes const whole = reloaded(reloaded(Tests::packet(key, value)));
    demand(reloaded(whole) == whole);
}

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    if (size > MOST_BYTES)
        return 0;

    Bytes const value(data, data + size);
    load(Tests::nodeKey(), value);
    for (unsigned char coding : {0x33, 0x53, 0x73})
    {
        KLV::Key key = Tests::strangeKey();
        key[5] = coding;
        load(key, value);
    }
    return 0;
}
