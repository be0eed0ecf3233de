#pragma once

#include "IndexTables/DeltaEntry.h"
#include "MXFIO/IndexTableSegmentType.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"

#include <optional>

namespace Vantry {
namespace IndexTables {
class IndexTableSegment;
}

namespace GenericContainer {

struct IndexEntryData;
struct IndexSegmentInfo;

/// The type that an automatic one becomes for a container; others stay.
MXFIO::IndexTableSegmentType resolvedType(MXFIO::IndexTableSegmentType type, IndexSegmentInfo const & info);

/// Whether segments of this type say all without index entries.
inline bool isConstantType(MXFIO::IndexTableSegmentType type)
{
    return type < MXFIO::INDEX_VARIABLE;
}

/// What all segments of a container's index table have in common: where
/// elements lie in an edit unit, and what index entries have to hold.
class IndexSegmentLayout
{
public:
    /// \param type  a resolved one
    /// \throws Exceptions::NotImplemented for a clip of several elements.
    /// \throws Exceptions::IndexOutOfBounds when there are more slices or
    ///         entries of the position table than a segment can have.
    IndexSegmentLayout(IndexSegmentInfo const & info, MXFIO::IndexTableSegmentType type);

    /// What an index entry has to have; none where there are no entries.
    unsigned char sliceCount() const;
    unsigned char posTableCount() const;

    /// Sets counts, delta entries and the size of the edit units.
    void fill(IndexTables::IndexTableSegment & segment) const;

private:
    void addFrame(IndexSegmentInfo const & info);
    void addFrameElement(IndexEntryData const & element, IndexSegmentInfo const & info);
    void addClip(IndexSegmentInfo const & info);
    void addElement(IndexEntryData const & element);
    bool addFill(IndexEntryData const & element, UInt32 klLength);
    void addDelta(int posTableIndex, UInt32 delta);
    int posTableIndexOf(IndexEntryData const & element) const;

    bool hasEntries() const { return !isConstantType(type_); }

    MXFIO::IndexTableSegmentType type_;
    Templates::vector<IndexTables::DeltaEntry> deltas_;
    std::optional<unsigned char> sliceCount_;
    std::optional<unsigned char> posTableCount_;
    UInt32 editUnitByteCount_ = 0;

    // Where the next element lies while elements are added.
    unsigned int slice_ = 0;
    unsigned int positions_ = 0;
    UInt32 elementDelta_ = 0;
    UInt32 sizeOfItem_ = 0;
};

}
}
