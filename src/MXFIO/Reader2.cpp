#include "MXFIO/Reader2.h"

#include "DataIO/RandomAccessDataSource.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "KLV/Reader.h"
#include "MXFIO/BlockSource.h"
#include "MXFIO/Partition.h"
#include "MXFIO/PartitionPackSearch.h"
#include "MXFIO/SaturatingSum.h"
#include "MXFIO/Unreadable.h"
#include "MetaMetadata/Dictionary.h"
#include "Packs/PartitionPack.h"
#include "Packs/RandomIndexPack.h"

#include <algorithm>
#include <utility>

namespace Vantry { namespace MXFIO {

namespace {

// The backward search goes in steps, and each looks at some more, so that a
// key across the border is found.
UInt64 const STEP = 6144;
UInt64 const STRETCH = STEP + 16;
UInt64 const KEY_START_SIZE = 4;

// Bytes that are read at once for many steps. Most footers end soon.
UInt64 const FIRST_BLOCK = 131072;
UInt64 const LARGEST_BLOCK = 262144;

bool isFooter(Partition const & partition)
{
    return partition.partitionPack().partitionKind() == Packs::PartitionPack::FOOTER_PARTITION;
}

UInt64 totalLength(DataIO::RandomAccessDataSource & source)
{
    return saturatingSum(source.absoluteOffset(), source.remaining());
}

UInt64 stretchAhead(DataIO::RandomAccessDataSource & source)
{
    return std::min(source.remaining(), STRETCH);
}

// Looks at a file step by step from its end. The bytes come in blocks of many
// steps, and most steps in essence are no more than one look at the block.
class StepsBack
{
public:
    StepsBack(DataIO::RandomAccessDataSource & source, UInt64 size) :
        size_(size), block_(source, 0), packets_(block_), position_(size), blockSize_(FIRST_BLOCK)
    {
    }

    UInt64 position() const { return position_; }

    // Goes a step back, of which there is one, and tells whether a walk from
    // there meets a partition pack.
    bool next();

    // Whether that walk met essence.
    bool essenceSeen() const { return essenceSeen_; }

private:
    void holdStretch();

    UInt64 const size_;
    BlockSource block_;
    KLV::Reader packets_;
    UInt64 position_;
    UInt64 blockSize_;
    bool essenceSeen_ = false;
};

bool StepsBack::next()
{
    position_ = position_ <= STEP ? 0 : position_ - STEP;
    essenceSeen_ = false;
    holdStretch();
    if (!block_.holdsKeyStart(position_, STRETCH + KEY_START_SIZE))
        return false;

    block_.seek(position_);
    PartitionPackSearch search(packets_, stretchAhead(block_), false);
    bool const found = nothingIfUnreadable([&] { return search.run(); }).get() != nullptr;
    essenceSeen_ = search.essenceSeen();
    return found;
}

void StepsBack::holdStretch()
{
    UInt64 const wanted = std::min(STRETCH + KEY_START_SIZE, size_ - position_);
    if (block_.holds(position_, wanted))
        return;

    // A walk may go on somewhat behind the stretch.
    UInt64 const end = std::min(position_ + 2 * STRETCH, size_);
    UInt64 const start = end - std::min(end, blockSize_);
    block_.hold(start, end - start);
    blockSize_ = std::min(blockSize_ * 2, LARGEST_BLOCK);
}

}

Reader2::Reader2(DataIO::RandomAccessDataSource & source, Templates::SharedPtr<MetaMetadata::Dictionary> dictionary,
                 UInt64 searchLimit) :
    Reader(source, std::move(dictionary), searchLimit), footer_(nullptr)
{
}

Reader2::~Reader2() = default;

Partition * Reader2::lastPartition()
{
    if (footer_ != nullptr)
        return footer_;

    Partition * last = nullptr;
    try
    {
        last = lastPartitionFromHeaderFooterOffset();
    }
    catch (Exceptions::InvalidFormat const &)
    {
        // The offset is wrong. There are other ways.
    }

    if (last == nullptr)
        last = lastPartitionFromRIP();
    if (last == nullptr)
        last = searchLastPartition(false);
    return keepFooter(last);
}

Partition * Reader2::lastPartition(UInt64 bytesFromEnd)
{
    return searchLastPartition(bytesFromEnd);
}

Partition * Reader2::footerPartition()
{
    if (footer_ != nullptr)
        return footer_;

    try
    {
        Partition * last = lastPartitionFromHeaderFooterOffset();
        if (last == nullptr)
            last = lastPartitionFromRIP();
        if (last == nullptr || !isFooter(*last))
            last = searchLastPartition(true);
        return keepFooter(last);
    }
    catch (Exceptions::InvalidFormat const &)
    {
        return nullptr;
    }
}

Partition * Reader2::partitionAtOffset(UInt64 thisPartition)
{
    UInt64 const target = saturatingSum(thisPartition, runInSize());
    Partition * const known = find(target);
    return known != nullptr && known->partitionAbsoluteOffset() == target ? known : readAt(target);
}

Partition * Reader2::backwardFirstPartitionWithFinalMetadata()
{
    Partition * const header = headerPartition();
    VANTRY_CHECK_TEXT(header != nullptr, "header != 0", InvalidFormat, "No header partition found");
    if (header->partitionPack().headerByteCount() != 0 && !header->partitionPack().isOpen())
        return header;

    Partition * const last = lastPartition();
    if (last == nullptr)
        return header;

    for (Partition * partition = last; partition != nullptr; partition = previousPartition(partition))
        if (partition->partitionPack().headerByteCount() != 0)
            return partition;
    return last;
}

bool Reader2::loadRipFromFooter()
{
    if (loadRIP())
        return true;

    Templates::auto_ptr<Packs::RandomIndexPack> rip(new Packs::RandomIndexPack);
    Partition * partition = footerPartition();
    if (partition == nullptr)
        return false;

    for (; partition != nullptr; partition = previousPartition(partition))
        rip->add(partition->partitionPack().bodySID(), partition->partitionAbsoluteOffset());
    return Reader::loadRIP(std::move(rip));
}

Partition * Reader2::lastPartitionFromRIP()
{
    if (!rip() || rip()->size() == 0)
        return nullptr;

    UInt64 const offset = rip()->offsetIndexedMap().rbegin()->first;
    UInt64 const target = saturatingSum(offset, runInSize());
    Partition * const partition = find(target);
    if (partition == nullptr || partition->partitionPack().thisPartition() != offset)
        return readAt(target);

    VANTRY_CHECK_TEXT(
        isFooter(*partition),
        "partition -> partitionPack ().partitionKind () == PartitionPack::FOOTER_PARTITION", InvalidFormat,
        "Last Partition indicated by RIP is not a Footer Partition");
    return partition;
}

Partition * Reader2::lastPartitionFromHeaderFooterOffset()
{
    Partition * const header = headerPartition();
    VANTRY_CHECK_TEXT(header != nullptr, "header != 0", InvalidFormat, "No header partition found");

    UInt64 const offset = header->partitionPack().footerPartition();
    UInt64 const target = saturatingSum(offset, runInSize());
    Partition * const known = find(target);
    if (known != nullptr && isFooter(*known))
        return known;
    if (offset == 0 || offset > totalLength(source()))
        return nullptr;

    Partition * const footer = readAt(target);
    if (footer == nullptr || !isFooter(*footer))
        VANTRY_FAIL(InvalidFormat, "Footer not found where indicated in header partition");
    return footer;
}

Partition * Reader2::searchLastPartition(bool footerRequired)
{
    DataIO::RandomAccessDataSource & file = source();
    file.seek(0);
    UInt64 const size = file.remaining();
    StepsBack steps(file, size);
    do
    {
        VANTRY_CHECK_TEXT(steps.position() != 0, "partition != 0", InvalidFormat, "No partition found");
        bool const found = steps.next();
        file.seek(steps.position());
        if (Partition * const partition = found ? readInStretch() : nullptr)
        {
            Partition * const last = keepFooter(lastFrom(partition));
            return footerRequired && !isFooter(*last) ? nullptr : last;
        }
        if (footerRequired && steps.essenceSeen())
            return nullptr;
    } while (file.absoluteOffset() <= size);

    VANTRY_FAIL(InvalidFormat, "No partition found in file");
}

Partition * Reader2::searchLastPartition(UInt64 bytesFromEnd)
{
    DataIO::RandomAccessDataSource & file = source();
    UInt64 const total = totalLength(file);
    file.seek(total - std::min(total, bytesFromEnd));

    Partition * last = nullptr;
    UInt64 bytesConsumed = 0;
    bool essenceSeen = false;
    for (UInt64 left = file.remaining(), before = left + 1; left != 0 && left < before;
         before = left, left = file.remaining())
    {
        if (Partition * const partition = readPartition(left, false, bytesConsumed, essenceSeen))
            last = partition;
    }
    return last;
}

// The partition whose pack is exactly there, null for none.
Partition * Reader2::readAt(UInt64 absoluteOffset)
{
    UInt64 bytesConsumed = 0;
    bool essenceSeen = false;
    source().seek(absoluteOffset);
    return readPartition(0, true, bytesConsumed, essenceSeen);
}

Partition * Reader2::readInStretch()
{
    UInt64 bytesConsumed = 0;
    bool essenceSeen = false;
    return readPartition(stretchAhead(source()), false, bytesConsumed, essenceSeen);
}

// The last of the partitions that follow each other closely from one on.
Partition * Reader2::lastFrom(Partition * partition)
{
    while (!isFooter(*partition))
    {
        positionSource(partition);
        Partition * const next = readInStretch();
        if (next == nullptr)
            break;
        partition = next;
    }
    return partition;
}

Partition * Reader2::keepFooter(Partition * last)
{
    if (last != nullptr && isFooter(*last))
        footer_ = last;
    return last;
}

}}
