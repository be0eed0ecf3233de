#include "UnwrapWalk.h"

#include "BlockSource.h"
#include "Exceptions/InvalidLength.h"
#include "KLV/Packet.h"
#include "PacketFaults.h"
#include "Packs/PartitionPack.h"

#include <algorithm>
#include <iterator>

namespace Vantry { namespace Application {

namespace {

/// SMPTE 429-6.
bool isEncrypted(KLV::Key const & key)
{
    unsigned char const TRIPLET[] = {0x0D, 0x01, 0x03, 0x01, 0x02, 0x7E};
    return key[4] == 2 && key[5] == 4 && std::equal(std::begin(TRIPLET), std::end(TRIPLET), key.rawBuffer() + 8);
}

/// The walk's way to the blocks.
class BlockInput : public Input
{
public:
    explicit BlockInput(BlockSource & source) : source_(source) {}

    DataIO::DataSource & source() override { return source_; }
    void stepBack(UInt64 howMuch) override { source_.seek(source_.absoluteOffset() - howMuch); }
    BytesInMemory ahead() const override { return source_.ahead(); }

private:
    BlockSource & source_;
};

}

void UnwrapWalk::run(UInt64 start, ContainerUnwrap * container)
{
    source_.seek(start);
    container_ = container;
    bodyStart_ = start;

    BlockInput input(source_);
    walkPackets(input, *this);
    for (auto const & container : containers_)
        container->end();
    if (!hasFooter_ && !isSatisfied())
        note("the file ends without a footer partition");
}

bool UnwrapWalk::isSatisfied() const
{
    return std::all_of(containers_.begin(), containers_.end(), [](auto const & one) { return one->isDone(); });
}

void UnwrapWalk::value(KLV::Packet & packet)
{
    if (Packs::isPartitionPack(packet.key()))
        enter(packet);
    else if (container_ != nullptr && isEssenceElement(packet.key()))
        container_->take(packet, source_);
    else if (isEncrypted(packet.key()))
        note("the essence is encrypted");
}

void UnwrapWalk::enter(KLV::Packet & packet)
{
    try
    {
        Packs::PartitionPack const pack(packet);
        packet.value().discard();
        enter(pack, source_.absoluteOffset());
    }
    catch (Exceptions::InvalidLength const &)
    {
        note("the partition pack at offset " + std::to_string(packet.keyAbsoluteOffset()) + " can't be read");
    }
}

void UnwrapWalk::enter(Packs::PartitionPack const & pack, UInt64 bodyStart)
{
    hasFooter_ = hasFooter_ || pack.partitionKind() == Packs::PartitionPack::FOOTER_PARTITION;
    bodyStart_ = bodyStart + pack.headerByteCount() + pack.indexByteCount();
    container_ = nullptr;
    for (auto const & container : containers_)
        if (pack.bodySID() != 0 && container->isIn(pack.bodySID()))
            container_ = container.get();
}

void UnwrapWalk::packet(KLV::Packet const & packet, UInt64 bytesThere)
{
    if (bytesThere < packet.length())
        note(cutFault(packet, bytesThere));
}

// What lies between the packets of metadata and index, or ahead of the file
// and behind it, does the essence no harm.
void UnwrapWalk::gap(UInt64 offset, UInt64 size, bool)
{
    if (container_ != nullptr && offset >= bodyStart_)
        note(gapFault(offset, size));
}

/// The first fault counts: others often follow from it.
void UnwrapWalk::note(std::string const & fault)
{
    if (fault_.empty())
        fault_ = fault;
}

}}
