#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry {

namespace DataIO {
class DataSink;
}

/// Where edit units lie in the essence stream: the index tables of SMPTE
/// 377M, section 10.
namespace IndexTables {

/// A record of an index table segment: an IndexEntry or a DeltaEntry.
class VANTRY_EXPORT IndexTableSegmentEntry
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~IndexTableSegmentEntry();

    /// Writes the wire form.
    ///
    /// \throws Exceptions::IOError when the sink fails.
    virtual void serialize(DataIO::DataSink & sink) const = 0;

    /// Bytes of the wire form.
    virtual unsigned short serializedSize() const = 0;

protected:
    IndexTableSegmentEntry() = default;
    IndexTableSegmentEntry(IndexTableSegmentEntry const &) = default;
    IndexTableSegmentEntry & operator=(IndexTableSegmentEntry const &) = default;
};

}
}
