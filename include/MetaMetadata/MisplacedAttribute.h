#pragma once

#include "MetaMetadata/AbstractMetaAttribute.h"

namespace Vantry { namespace MetaMetadata {

class MetaElement;

/// An attribute that the dictionary knows, in a set that it doesn't belong to.
class VANTRY_EXPORT MisplacedAttribute : public AbstractMetaAttribute
{
public:
    VANTRY_CLASS_ALLOCATION

    /// The dictionary, which owns the element, outlives this object.
    explicit MisplacedAttribute(MetaElement const & metaElement) noexcept : metaElement_(&metaElement) {}

    void accept(AbstractMetaAttributeVisitor & visitor) const override;

    MetaElement const & metaElement() const noexcept { return *metaElement_; }

private:
    MetaElement const * metaElement_;
};

/// Whether both mean the very same element.
VANTRY_EXPORT bool operator==(MisplacedAttribute const & left, MisplacedAttribute const & right) noexcept;

}}
