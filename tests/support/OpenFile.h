#pragma once

#include "MXFIO/Partition.h"
#include "MXFIO/Reader2.h"
#include "support/MXFFile.h"

namespace Vantry { namespace Tests {

UInt64 const SEARCH_LIMIT = 65536;

/// A reader of which all can be called.
class ProtectedReader : public MXFIO::Reader2
{
public:
    using Reader2::find;
    using Reader2::lastPartitionFromHeaderFooterOffset;
    using Reader2::lastPartitionFromRIP;
    using Reader2::loadRIP;
    using Reader2::positionSource;
    using Reader2::Reader2;
    using Reader2::readPartition;
    using Reader2::searchLastPartition;
};

/// A file in memory, opened with the small schema.
struct OpenFile
{
    explicit OpenFile(Bytes bytes, UInt64 searchLimit = SEARCH_LIMIT) :
        source(std::move(bytes)), reader(source, Schema().dictionary(), searchLimit)
    {
    }
    explicit OpenFile(MXFFile const & file) : OpenFile(file.bytes()) {}

    BytesSource source;
    ProtectedReader reader;
};

/// Where the partitions are that come one after another by a step.
template <class Step>
std::vector<UInt64> offsetsBy(MXFIO::Partition * partition, Step const & step)
{
    std::vector<UInt64> offsets;
    for (; partition != nullptr; partition = step(partition))
        offsets.push_back(partition->partitionAbsoluteOffset());
    return offsets;
}

/// The same from the header partition forward.
inline std::vector<UInt64> offsetsForward(MXFIO::Reader & reader)
{
    return offsetsBy(reader.headerPartition(),
                     [&](MXFIO::Partition * partition) { return reader.nextPartition(partition); });
}

}}
