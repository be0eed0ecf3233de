#pragma once

#include "EditRate.h"
#include "Platform/Integers.h"

#include <map>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace Vantry {
namespace IndexTables {
class IndexTableSegment;
}

namespace Application {

class FileLayout;
class Warnings;

/// What all index table segments of an essence stream tell.
class StreamIndex
{
public:
    /// Takes a segment in, unless there is the same one already.
    void add(IndexTables::IndexTableSegment const & segment);

    /// Ends the additions.
    void finish();

    /// "cbe", "vbe" or "none"
    std::string_view kind() const;

    unsigned int indexSID() const { return indexSID_; }
    std::size_t segments() const { return segments_.size(); }
    std::optional<EditRate> const & editRate() const { return editRate_; }

    /// Edit units that the index covers; none when it doesn't say.
    std::optional<UInt64> editUnits() const;

    /// Bytes of each edit unit, 0 when they differ.
    UInt32 editUnitByteCount() const { return editUnitByteCount_; }

    /// Where edit units begin, without a gap from the first one.
    std::vector<UInt64> const & offsets() const { return offsets_; }

    /// Whether the last offset is where the last edit unit ends.
    bool endsWithMark() const { return endsWithMark_; }

private:
    /// First edit unit, and number of edit units, 0 when that isn't known.
    using Span = std::pair<Int64, UInt64>;

    struct Content
    {
        UInt32 editUnitByteCount;
        std::vector<UInt64> offsets;
    };

    bool takeOffsets(Span const & span, std::vector<UInt64> const & offsets);

    unsigned int indexSID_ = 0;
    std::optional<EditRate> editRate_;
    std::map<Span, Content> segments_;
    UInt32 editUnitByteCount_ = 0;
    std::vector<UInt64> offsets_;
    bool endsWithMark_ = false;
};

/// The indexes of a file by the body SID of their stream.
using StreamIndexes = std::map<unsigned int, StreamIndex>;

/// Reads all index table segments.
///
/// \throws Exceptions::IOError when the medium fails.
StreamIndexes readIndexes(FileLayout const & layout, Warnings & warnings);

}
}
