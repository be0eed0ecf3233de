#pragma once

#include "Platform/Export.h"

namespace Vantry {
namespace Types {
class UniversalLabel;
}

namespace Metadata {

class MetadataSet;

namespace Structural {

/// Has an attribute of `set` refer to `target`, or to nothing for null. Does
/// nothing when the schema of the set lacks the attribute or the target has no
/// instance identifier.
///
/// \throws Exceptions::MetadataSetReferenceNotAllowed for a set of a kind that
///         the schema doesn't list.
/// \throws std::bad_cast for an attribute that is no single reference.
VANTRY_EXPORT void setReferencedMetadataSet(MetadataSet * set, Types::UniversalLabel const & label,
                                            MetadataSet const * target);

}
}
}
