#include "MetadataChoice.h"

#include "DataIO/RandomAccessDataSource.h"
#include "FileDictionary.h"
#include "FileLayout.h"
#include "MXFIO/Partition.h"
#include "Metadata/MetadataKeys.h"
#include "Packs/PartitionPack.h"
#include "Warnings.h"

#include <algorithm>

namespace Vantry { namespace Application {

namespace {

// Files repeat their metadata in many partitions. When several copies are
// spoilt, so will be the others.
std::size_t const MOST_TRIALS = 4;

struct Candidate
{
    MXFIO::Partition const * partition;
    UInt64 end;

    int rank() const
    {
        Packs::PartitionPack const & pack = partition->partitionPack();
        bool const isHeader = pack.partitionKind() == Packs::PartitionPack::HEADER_PARTITION;
        return 4 * !pack.isOpen() + 2 * pack.isComplete() + isHeader;
    }
};

/// The best first; of equals the one that is farther back.
std::vector<Candidate> candidatesIn(FileLayout const & layout)
{
    std::vector<Candidate> candidates;
    for (std::size_t i = layout.partitions().size(); i > 0; --i)
        if (layout.partitions()[i - 1]->partitionPack().headerByteCount() != 0)
            candidates.push_back({layout.partitions()[i - 1], layout.end(i - 1)});
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](Candidate const & left, Candidate const & right) { return left.rank() > right.rank(); });
    return candidates;
}

bool hasPreface(HeaderMetadata const & header)
{
    return !header.metadata->find(Metadata::MetadataKeys::preface()).empty();
}

/// What the partition claims, but for what belongs to the next one.
UInt64 bytesOfMetadata(FileLayout const & layout, Candidate const & candidate, Warnings & warnings)
{
    UInt64 const claimed = candidate.partition->partitionPack().headerByteCount();
    UInt64 const start = candidate.partition->metadataAbsoluteOffset();
    UInt64 const room = candidate.end - std::min(start, candidate.end);
    if (claimed <= room || candidate.end == layout.size())
        return claimed;
    warnings.add(fmt::format("the partition at offset {} has {} bytes of header metadata, and room for {}",
                             candidate.partition->partitionAbsoluteOffset(), claimed, room));
    return room;
}

}

MetadataChoice chooseMetadata(FileLayout const & layout, Schema::Tables const & tables, Warnings & warnings)
{
    std::vector<Candidate> candidates = candidatesIn(layout);
    if (candidates.empty())
        candidates.push_back({layout.partitions().front(), layout.end(0)});

    MetadataChoice choice{nullptr, {}};
    for (std::size_t i = 0; i < std::min(candidates.size(), MOST_TRIALS); ++i)
    {
        UInt64 const size = bytesOfMetadata(layout, candidates[i], warnings);
        layout.file().seek(candidates[i].partition->metadataAbsoluteOffset());
        HeaderMetadata header = readHeaderMetadata(layout.file(), size, dictionaryFor(layout.file(), size, tables));
        warnings.add(header.warnings);
        bool const isGood = hasPreface(header);
        if (choice.partition == nullptr || isGood)
            choice = MetadataChoice{candidates[i].partition, std::move(header)};
        if (isGood)
            break;
    }
    return choice;
}

}}
