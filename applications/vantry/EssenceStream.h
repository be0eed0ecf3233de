#pragma once

#include "Platform/Integers.h"

#include <optional>
#include <vector>

namespace Vantry { namespace Application {

class FileLayout;
class Warnings;

/// The bytes of an essence stream and where the file has them.
class EssenceStream
{
public:
    /// What a partition has of the stream.
    struct Stretch
    {
        UInt64 streamStart;
        UInt64 fileStart;
        UInt64 size;

        UInt64 streamEnd() const { return streamStart + size; }
    };

    EssenceStream(FileLayout const & layout, unsigned int bodySID, Warnings & warnings);

    unsigned int bodySID() const { return bodySID_; }

    /// Whether the stream is a generic one (SMPTE 410M), which has no edit
    /// units.
    bool isGeneric() const { return isGeneric_; }

    /// In stream order, up to the first gap.
    std::vector<Stretch> const & stretches() const { return stretches_; }

    /// Bytes of all partitions.
    UInt64 size() const { return size_; }

    /// Where the stream ends, or has its first gap.
    UInt64 end() const { return stretches_.empty() ? 0 : stretches_.back().streamEnd(); }

    /// Whether nothing follows it in the file, so that more may be missing.
    bool endsOpen() const { return endsOpen_; }

private:
    void add(UInt64 claimedStart, UInt64 fileStart, UInt64 fileEnd, Warnings & warnings);

    unsigned int bodySID_;
    bool isGeneric_ = false;
    bool endsOpen_ = false;
    bool hasGap_ = false;
    UInt64 size_ = 0;
    std::vector<Stretch> stretches_;
};

}}
