#pragma once

#include "MXFIO/IndexTableGenerator.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry {
namespace IndexTables {
class IndexEntry;
}

namespace GenericContainer {

struct IndexSegmentInfo;

/// An index table generator that a container's worker tells what it writes.
class VANTRY_EXPORT GenericContainerIndexTableGenerator : public MXFIO::IndexTableGenerator
{
public:
    ~GenericContainerIndexTableGenerator() override;

    /// Says once, before the generator is used, what the container is like.
    virtual void setupIndexSegments(IndexSegmentInfo const & info) = 0;

    /// Says how far the container has got.
    ///
    /// \param editUnits     edit units written so far
    /// \param streamOffset  bytes written so far
    virtual void currentContentInfo(UInt64 editUnits, UInt64 streamOffset) = 0;

    /// Entries of the position table that each index entry has to have.
    virtual unsigned char posTableCount() const = 0;

    /// Slice offsets that each index entry has to have.
    virtual unsigned char sliceCount() const = 0;

    /// Takes the index entry of the next edit unit.
    virtual void writeIndexEntry(IndexTables::IndexEntry const & entry) = 0;
};

}
}
