#pragma once

#include "Platform/Export.h"

namespace Vantry {
namespace MetaMetadata {
class MetaElement;
}

namespace Metadata {

class MetadataSet;

/// The part of an element whose values refer to sets.
class VANTRY_EXPORT ReferenceHolder
{
protected:
    /// \param metaElement  what the dictionary knows of the attribute, or null
    explicit ReferenceHolder(MetaMetadata::MetaElement const * metaElement) noexcept : metaElement_(metaElement) {}

    /// Passes where the dictionary says nothing of references.
    ///
    /// \throws Exceptions::MetadataSetReferenceNotAllowed for a set whose key
    ///         the dictionary doesn't list for the attribute.
    void checkIfSetCanBeReferenced(MetadataSet const * set) const;

private:
    MetaMetadata::MetaElement const * metaElement_;
};

}
}
