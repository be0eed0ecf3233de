#pragma once

#include "Metadata/PartitionMetadataListener.h"

namespace Vantry { namespace Metadata { namespace Listeners {

/// A listener that gathers changes until it is told to act on them.
class VANTRY_EXPORT CommitableListener : public PartitionMetadataListener
{
public:
    ~CommitableListener() override;

    /// Acts on the changes since the last time and forgets them.
    virtual void commit() = 0;
};

}}}
