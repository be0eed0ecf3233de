#pragma once

#include "DataIO/PositionedDataSource.h"
#include "Templates/Containers.h"

namespace Vantry { namespace MXFIO {

/// Another source, of which it has a block in memory. Many small reads of an
/// area that is known to be wanted become a few large ones, whatever buffer
/// there is below.
///
/// The source is lent; in the end it stands where this one does.
class BlockSource : public DataIO::PositionedDataSource
{
public:
    /// Starts where the source stands. A read outside the block gets the next
    /// block, which doesn't reach behind `areaEnd` for its own sake.
    BlockSource(DataIO::RandomAccessDataSource & source, UInt64 areaEnd);
    BlockSource(BlockSource const &) = delete;
    BlockSource & operator=(BlockSource const &) = delete;
    ~BlockSource() override;

    UInt64 read(unsigned char * destination, UInt64 howMuch) override;

    /// Has this many bytes from `position` on in memory, fewer at the end.
    void hold(UInt64 position, UInt64 howMuch);

    /// Whether all of these bytes are in memory.
    bool holds(UInt64 position, UInt64 howMuch) const;

    /// Whether the bytes of a SMPTE key's start, 06 0E 2B 34, are anywhere
    /// among those held from `position` on.
    bool holdsKeyStart(UInt64 position, UInt64 howMuch) const;

private:
    UInt64 take(unsigned char * destination, UInt64 howMuch);

    DataIO::RandomAccessDataSource & source_;
    UInt64 const areaEnd_;
    Templates::vector<unsigned char> block_;
    UInt64 blockStart_;
};

}}
