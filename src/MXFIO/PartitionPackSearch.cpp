#include "MXFIO/PartitionPackSearch.h"

#include "DataIO/DataSource.h"
#include "KLV/KeyPredicates.h"
#include "KLV/Reader.h"
#include "Packs/PartitionPack.h"

#include <limits>

namespace Vantry { namespace MXFIO {

namespace {

// Limits are signed numbers.
UInt64 const HIGHEST_LIMIT = std::numeric_limits<Int64>::max();

}

PartitionPackSearch::PartitionPackSearch(KLV::Reader & reader, UInt64 limit, bool fixedLimit) :
    reader_(reader), limit_(limit), fixedLimit_(fixedLimit), exhausted_(limit > HIGHEST_LIMIT)
{
}

Templates::auto_ptr<KLV::Packet> PartitionPackSearch::run()
{
    while (!exhausted_ && !reader_.source().endOfStream())
    {
        UInt64 skipped = 0;
        Templates::auto_ptr<KLV::Packet> packet = reader_.nextKLV(skipped, limit_);
        bytesConsumed_ += skipped;
        if (Packs::isPartitionPack(packet->key()))
            return packet;
        pass(*packet);
    }
    return Templates::auto_ptr<KLV::Packet>();
}

void PartitionPackSearch::pass(KLV::Packet & packet)
{
    if (KLV::isEssence(packet.key()))
        essenceSeen_ = true;

    UInt64 const length = packet.klvLength();
    bytesConsumed_ += length;
    packet.value().discard();
    if (fixedLimit_)
        return;

    exhausted_ = length > limit_;
    limit_ -= exhausted_ ? limit_ : length;
}

}}
