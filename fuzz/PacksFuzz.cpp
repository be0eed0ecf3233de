// Reads any packet as each of the packs, whatever its key says: what can be
// read is written in the size that it tells, and is the same when it is read
// and written once more.

#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/InvalidPartitionKind.h"
#include "Exceptions/InvalidPartitionStatus.h"
#include "Exceptions/KeyNotFound.h"
#include "Exceptions/NotEnoughData.h"
#include "Packs/PartitionPack.h"
#include "Packs/PrimerPack.h"
#include "Packs/RandomIndexPack.h"
#include "support/BytesPacket.h"
#include "support/BytesSink.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace Vantry;
using Tests::Bytes;
using Tests::BytesPacket;

void demand(bool condition)
{
    if (!condition)
        std::abort();
}

template <class Pack>
Bytes rewritten(BytesPacket & packet)
{
    Pack const pack(*packet);
    Bytes bytes = Tests::serialized(pack);
    demand(bytes.size() == pack.serializedSize());
    return bytes;
}

// Reads the bytes as a packet whose key is replaced.
template <class Pack>
void readAs(Bytes const & bytes, KLV::Key const & key)
{
    BytesPacket packet(bytes);
    (*packet).key(key);
    Bytes const once = rewritten<Pack>(packet);

    BytesPacket again(once);
    demand(rewritten<Pack>(again) == once);
}

template <class Pack>
void readSafelyAs(Bytes const & bytes, KLV::Key const & key)
{
    try
    {
        readAs<Pack>(bytes, key);
    }
    catch (Exceptions::NotEnoughData const &)
    {
    }
    catch (Exceptions::KeyNotFound const &)
    {
    }
    catch (Exceptions::InvalidFormat const &)
    {
    }
    catch (Exceptions::InvalidLength const &)
    {
    }
    catch (Exceptions::InvalidPartitionKind const &)
    {
    }
    catch (Exceptions::InvalidPartitionStatus const &)
    {
    }
}

// The key of a partition pack with kind and status of the key in the bytes.
KLV::Key partitionKey(Bytes const & bytes)
{
    using Packs::PartitionPack;
    return Packs::buildPartitionPackKey(PartitionPack::PartitionKind(bytes[13]),
                                        PartitionPack::PartitionStatus(bytes[14]));
}

}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    if (size < 16)
        return 0;

    Bytes const bytes(data, data + size);
    readSafelyAs<Packs::PartitionPack>(bytes, partitionKey(bytes));
    readSafelyAs<Packs::PrimerPack>(bytes, Packs::PrimerPack::key());
    readSafelyAs<Packs::RandomIndexPack>(bytes, Packs::RandomIndexPack::key());
    return 0;
}
