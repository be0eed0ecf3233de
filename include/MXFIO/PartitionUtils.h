#pragma once

#include "Platform/Export.h"
#include "Platform/Integers.h"

namespace Vantry { namespace MXFIO {

class Partition;
class Reader;
class Reader2;

/// The partition that holds a place of an essence container, by a walk from
/// the header partition on.
///
/// \param offset  bytes from the start of the container; the end of a body
///                counts as within it, unless another starts there
/// \return null for none; a partition of the container without a body ends
///         the search
/// \throws Exceptions::InvalidFormat without a header partition, and as
///         `bodyLength`.
VANTRY_EXPORT Partition * partitionContainingRelativeOffset(Reader & reader, unsigned int bodySID, UInt64 offset);

/// The same by a walk back from the footer, or from the last partition known.
///
/// \param fromLastLoaded  begin with the last partition that is known, and
///                        don't look for a footer
/// \return null for none
/// \throws Exceptions::InvalidFormat when there is no partition to begin
///         with, and as `bodyLength`.
VANTRY_EXPORT Partition * partitionContainingRelativeOffset(Reader2 & reader, unsigned int bodySID, UInt64 offset,
                                                            bool fromLastLoaded);

/// Bytes of the body of a partition; 0 for null, or one of another container.
///
/// \throws Exceptions::InvalidFormat when no partition follows, or the one
///         that does begins within the metadata or index of this one.
VANTRY_EXPORT UInt64 bodyLength(Reader & reader, Partition * partition, unsigned int bodySID);

}}
