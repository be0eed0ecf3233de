#include "PartitionText.h"

#include "Packs/PartitionPack.h"

namespace Vantry { namespace Application {

using Packs::PartitionPack;

std::string_view kindOf(PartitionPack const & pack)
{
    switch (pack.partitionKind())
    {
    case PartitionPack::HEADER_PARTITION:
        return "header";
    case PartitionPack::BODY_PARTITION:
        return "body";
    default:
        return "footer";
    }
}

std::string_view statusOf(PartitionPack const & pack)
{
    if (pack.isGenericStreamsPartition())
        return "generic_stream";
    if (pack.isOpen())
        return pack.isComplete() ? "open_complete" : "open_incomplete";
    return pack.isComplete() ? "closed_complete" : "closed_incomplete";
}

}}
