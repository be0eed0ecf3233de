#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace Packs {
class PartitionPack;
}

namespace MXFIO {

class FutureUpdater;

/// Hears what a creator puts into a file, in the thread that pulls. Offsets
/// count from the start of the header partition.
class VANTRY_EXPORT CreatorListener
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~CreatorListener();

    /// A partition was opened.
    ///
    /// \param packBytes  bytes of the pack and the fill item behind it
    virtual void partitionCreated(UInt64 offset, Templates::SharedPtr<Packs::PartitionPack> pack, UInt64 packBytes) = 0;

    /// A source will have bytes to write again, of the piece that starts here.
    virtual void updaterCreated(UInt64 offset, Templates::SharedPtr<FutureUpdater> updater) = 0;
};

}
}
