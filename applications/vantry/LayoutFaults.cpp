#include "LayoutFaults.h"

#include "FileLayout.h"
#include "MXFIO/Partition.h"
#include "Packs/PartitionPack.h"
#include "Warnings.h"

#include <map>

namespace Vantry { namespace Application {

namespace {

using MXFIO::Partition;
using Packs::PartitionPack;

/// Where a partition is, as packs count it.
UInt64 placeOf(FileLayout const & layout, Partition const & partition)
{
    return partition.partitionAbsoluteOffset() - layout.runIn();
}

void findMissingFooter(FileLayout const & layout, Warnings & warnings)
{
    Partition const & last = *layout.partitions().back();
    UInt64 const claimed = layout.partitions().front()->partitionPack().footerPartition();
    if (isFooter(last))
    {
        if (claimed != 0 && claimed != placeOf(layout, last))
            warnings.add(fmt::format("the header partition has the footer at offset {}, where it is not: it is at {}",
                                     claimed, placeOf(layout, last)));
        else if (claimed == 0)
            warnings.add(fmt::format("the header partition doesn't tell of the footer partition at offset {}",
                                     placeOf(layout, last)));
    }
    else if (claimed == 0)
        warnings.add("there is no footer partition");
    else if (claimed >= layout.size())
        warnings.add(fmt::format("the footer partition is missing: it should be at offset {}, and the file ends at {}",
                                 claimed, layout.size()));
    else
        warnings.add(fmt::format("the footer partition is missing: it should be at offset {}", claimed));
}

void findPackFaults(FileLayout const & layout, Warnings & warnings)
{
    FaultGroup places(warnings);
    FaultGroup predecessors(warnings);
    FaultGroup footers(warnings);
    FaultGroup patterns(warnings);
    Partition const & last = *layout.partitions().back();
    PartitionPack const & header = layout.partitions().front()->partitionPack();
    UInt64 before = 0;
    for (Partition const * partition : layout.partitions())
    {
        PartitionPack const & pack = partition->partitionPack();
        UInt64 const place = placeOf(layout, *partition);
        if (pack.thisPartition() != place)
            places.add("the partition at offset {} says that it is at {}", place, pack.thisPartition());
        if (pack.previousPartition() != before)
            predecessors.add("the partition at offset {} says that it follows the one at {}, and follows that at {}",
                             place, pack.previousPartition(), before);
        if (place != 0 && pack.footerPartition() != 0 && isFooter(last) &&
            pack.footerPartition() != placeOf(layout, last))
            footers.add("the partition at offset {} has the footer at {}, where it is not", place,
                        pack.footerPartition());
        if (!(pack.operationalPattern() == header.operationalPattern()))
            patterns.add("the partition at offset {} has another operational pattern than the header partition", place);
        before = place;
    }
    for (FaultGroup const * group : {&places, &predecessors, &footers, &patterns})
        group->tell();
}

void findRIPFaults(FileLayout const & layout, Packs::RandomIndexPack const & rip, Warnings & warnings)
{
    FaultGroup nowhere(warnings);
    FaultGroup others(warnings);
    FaultGroup missing(warnings);
    std::map<UInt64, unsigned int> bodySIDs;
    for (Partition const * partition : layout.partitions())
        bodySIDs[placeOf(layout, *partition)] = partition->partitionPack().bodySID();

    for (auto const & [offset, bodySID] : rip.offsetIndexedMap())
    {
        auto const found = bodySIDs.find(offset);
        if (found == bodySIDs.end())
            nowhere.add("the random index pack lists a partition at offset {}, where there is none", offset);
        else if (found->second != bodySID)
            others.add("the random index pack gives body SID {} to the partition at offset {}, which says {}", bodySID,
                       offset, found->second);
    }
    for (auto const & [offset, bodySID] : bodySIDs)
        if (rip.offsetIndexedMap().count(offset) == 0)
            missing.add("the random index pack lacks the partition at offset {}", offset);
    for (FaultGroup const * group : {&nowhere, &others, &missing})
        group->tell();
}

}

void findLayoutFaults(FileLayout const & layout, Warnings & warnings)
{
    findMissingFooter(layout, warnings);
    findPackFaults(layout, warnings);
    if (layout.randomIndexPack() != nullptr)
        findRIPFaults(layout, *layout.randomIndexPack(), warnings);
    else
        warnings.add("there is no random index pack");
}

}}
