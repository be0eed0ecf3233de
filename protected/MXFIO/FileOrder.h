#pragma once

#include "KLV/Packet.h"
#include "MXFIO/PackageTrack.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"

namespace Vantry { namespace MXFIO {

class ContentStorageReader;
struct ElementEditUnit;

/// Reads the tracks of a package as a container has them stored.
class FileOrder
{
public:
    /// Both are lent.
    FileOrder(ContentStorageReader & container, Templates::vector<PackageTrack> & tracks);

    /// Goes to the start of the edit unit that the track of this container
    /// needs which is furthest behind. Without an index all that lies ahead is
    /// passed.
    ///
    /// \return false when the container hasn't got it
    bool goToEarliest();

    /// Reads the next packet that a track shows, and has the track move on.
    /// False when there is none: all tracks have ended.
    ///
    /// \param unit  is empty
    bool next(UInt64 searchLimit, ElementEditUnit & unit);

private:
    bool walkTo(Int64 editUnit);
    bool take(Templates::auto_ptr<KLV::Packet> & packet, ElementEditUnit & unit);
    PackageTrack * trackOf(KLV::Key const & key);
    bool isBehindAll(Int64 editUnit) const;

    ContentStorageReader & container_;
    Templates::vector<PackageTrack> & tracks_;
};

}}
