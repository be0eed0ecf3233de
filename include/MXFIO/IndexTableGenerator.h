#pragma once

#include "MXFIO/IndexTableGeneration.h"
#include "MXFIO/IndexTableSegmentType.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry {
namespace DataIO {
class DataSink;
}

namespace MXFIO {

/// Makes the index table of one essence container while it is written (SMPTE
/// 377M, section 10).
///
/// A partition writer says where the table goes: it sets `indexSID`, `bodySID`
/// and `indexStrategies` first, and for each partition calls `updateIndex`,
/// asks for the bytes and has them written.
class VANTRY_EXPORT IndexTableGenerator
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~IndexTableGenerator();

    /// Closes the segment that entries go to and opens the next.
    virtual void updateIndex() = 0;

    /// Bytes that `writeIndexSegments` would write now.
    ///
    /// \param afterEssence  whether all essence has been written
    virtual unsigned int rawIndexByteCount(bool afterEssence) const = 0;

    /// Writes the segments that the strategy asks for.
    ///
    /// \param afterEssence  as in `rawIndexByteCount`
    /// \throws Exceptions::IOError when the sink fails.
    virtual void writeIndexSegments(bool afterEssence, DataIO::DataSink & sink) = 0;

    /// The stream of the index.
    virtual void indexSID(unsigned int indexSID) = 0;

    /// The stream of the essence.
    virtual void bodySID(unsigned int bodySID) = 0;

    /// \param duringEssence  what partitions get while there is essence to come
    /// \param afterEssence   what partitions behind it get
    virtual void indexStrategies(IndexTableGeneration duringEssence, IndexTableGeneration afterEssence,
                                 IndexTableSegmentType segmentType) = 0;

    /// The type that `indexStrategies` asked for; once the generator is in use,
    /// the one that an automatic type has become.
    virtual IndexTableSegmentType indexSegmentType() const = 0;

    /// Whether a partition behind the essence gets segments.
    virtual bool indexesAfterEndOfEssence() const = 0;

protected:
    IndexTableGenerator() = default;
    IndexTableGenerator(IndexTableGenerator const &) = default;
    IndexTableGenerator & operator=(IndexTableGenerator const &) = default;
};

}
}
