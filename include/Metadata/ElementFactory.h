#pragma once

#include "MetaMetadata/AbstractMetaAttribute.h"
#include "Platform/Export.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace MetaMetadata {
class MetaAttribute;
class MetaElement;
}

namespace Metadata {

class Element;
class MetadataSet;

/// Makes elements without values, of the class that goes with the type of the
/// attribute. They belong to the caller.
class VANTRY_EXPORT ElementFactory
{
public:
    ElementFactory() = delete;

    /// An element for an attribute of the set's schema.
    static Element * create(Templates::SharedPtr<MetaMetadata::MetaAttribute> const & attribute, MetadataSet & set);

    /// An element for any attribute: a SimpleElement when it is unknown.
    static Element * create(Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> const & attribute,
                            MetadataSet & set);

    /// An element for an attribute with values as `metaElement` describes
    /// them.
    static Element * create(Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> const & attribute,
                            MetadataSet & set, MetaMetadata::MetaElement const & metaElement);
};

}
}
