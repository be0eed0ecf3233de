#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace KLV {
class Packet;
}

namespace MXFIO {

/// Is given the packets of system items (SMPTE 379M) that a reader of essence
/// passes over on its way.
class VANTRY_EXPORT SystemItemKLVPacketListener
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~SystemItemKLVPacketListener();

    /// A packet was met. Its value is yet to be read, and can be until the
    /// reader goes on.
    virtual void systemItemPacketRead(Templates::auto_ptr<KLV::Packet> packet) = 0;
};

}
}
