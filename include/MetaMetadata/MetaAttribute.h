#pragma once

#include "MetaMetadata/AbstractMetaAttribute.h"
#include "MetaMetadata/AttributeRequiredStatus.h"
#include "MetaMetadata/PropertyMap.h"
#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"
#include "Types/LocalTag.h"

namespace Vantry {
namespace Types {
class BaseType;
}

namespace MetaMetadata {

class MetaElement;

/// An attribute's place in one set.
///
/// It refers to its MetaElement, which belongs to the dictionary: that must
/// outlive it.
class VANTRY_EXPORT MetaAttribute : public AbstractMetaAttribute, public PropertyMap
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \param distinguished  the value that stands for "not known", or null
    /// \param staticTag      the tag that the attribute has in every file, or
    ///                       null; copied
    MetaAttribute(MetaElement const & metaElement, AttributeRequiredStatus::Status status,
                  Templates::auto_ptr<Types::BaseType const> distinguished, Types::LocalTag const * staticTag);
    MetaAttribute(MetaAttribute const & other);
    MetaAttribute & operator=(MetaAttribute const & other);
    ~MetaAttribute() override;

    void accept(AbstractMetaAttributeVisitor & visitor) const override;

    MetaElement const & metaElement() const noexcept { return *metaElement_; }
    AttributeRequiredStatus::Status requiredStatus() const noexcept { return status_; }

    /// The value that stands for "not known"; null when there is none.
    Types::BaseType const * getDistinguishedValue() const noexcept { return distinguished_.get(); }

    /// The tag that the attribute has in every file; null when there is none.
    Types::LocalTag const * staticLocalTag() const noexcept { return hasStaticTag_ ? &staticTag_ : nullptr; }

private:
    MetaElement const * metaElement_;
    AttributeRequiredStatus::Status status_;
    Templates::SharedPtr<Types::BaseType const> distinguished_;
    bool hasStaticTag_;
    Types::LocalTag staticTag_;
};

/// Whether both have the same status and properties, both or neither a static
/// tag, and the right one the distinguished value of the left, if that has one.
VANTRY_EXPORT bool operator==(MetaAttribute const & left, MetaAttribute const & right);

}
}
