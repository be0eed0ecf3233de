#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry {
namespace KLV {
class Packet;
}
namespace Metadata {
class PartitionMetadata;
}
namespace Packs {
class PrimerPack;
}

namespace MXFIO {

/// Hears how the header metadata of a partition is loaded. What it is given
/// is lent for the time of the call.
class VANTRY_EXPORT PartitionListener
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~PartitionListener();

    /// The primer pack was read, with which the sets will be.
    virtual void primerPackLoaded(Packs::PrimerPack & primerPack) = 0;

    /// The metadata is there, still empty: the moment to add listeners to it.
    virtual void metadataCreated(Metadata::PartitionMetadata & metadata) = 0;

    /// A packet among the sets is none: a fill item, or something unknown. Its
    /// value is yet to be read, or passed over if the listener doesn't.
    virtual void unknownPacketRead(KLV::Packet & packet) = 0;
};

}
}
