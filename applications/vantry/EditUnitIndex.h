#pragma once

#include "Platform/Integers.h"
#include "Templates/Rational.h"

#include <memory>
#include <optional>

namespace Vantry {
namespace MXFIO {
class IndexTableProvider;
class Reader2;
}

namespace Application {

/// Where edit units begin in an essence container, by its index table as far
/// as the file has one that can be used.
class EditUnitIndex
{
public:
    /// \param reader  lent
    EditUnitIndex(MXFIO::Reader2 & reader, unsigned bodySID, unsigned indexSID);
    ~EditUnitIndex();

    /// Edit units per second; nothing without an index.
    std::optional<Templates::Rational<Int64>> editRate() const { return editRate_; }

    /// Bytes of each edit unit; 0 when they differ or it isn't known.
    UInt64 editUnitSize() const { return editUnitSize_; }

    /// Bytes of the container ahead of an edit unit; nothing when the index
    /// doesn't tell.
    std::optional<UInt64> offset(Int64 editUnit);

private:
    std::optional<UInt64> offsetByConstantSizes(Int64 editUnit);

    std::unique_ptr<MXFIO::IndexTableProvider> provider_;
    std::optional<Templates::Rational<Int64>> editRate_;
    UInt64 editUnitSize_ = 0;
};

}
}
