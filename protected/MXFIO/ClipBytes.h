#pragma once

#include "Platform/Integers.h"

namespace Vantry { namespace MXFIO {

class ContentStorageReader;

/// Finds edit units in a clip that is one packet: by the index table, or by the
/// length of the clip where all of them are of one size.
class ClipBytes
{
public:
    /// \param reader  lent
    explicit ClipBytes(ContentStorageReader & reader);

    /// Bytes of the clip ahead of an edit unit, all of them for one behind the
    /// end.
    ///
    /// \param length  bytes of the clip
    /// \return false when nothing tells where the edit unit is
    bool ahead(Int64 editUnit, UInt64 length, UInt64 & bytes) const;

    /// The edit unit behind the clip; -1 when it isn't known.
    Int64 end() const { return end_; }

private:
    bool byIndex(Int64 editUnit, UInt64 & bytes) const;
    bool byLength(Int64 editUnit, UInt64 length, UInt64 & bytes) const;

    ContentStorageReader & reader_;
    Int64 const end_;
};

}}
