#pragma once

#include "KLV/Key.h"
#include "MetaMetadata/MetaAttribute.h"
#include "MetaMetadata/PropertyMap.h"
#include "Templates/Containers.h"
#include "Templates/SharedPtr.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace MetaMetadata {

/// A set of the schema: its key and the attributes that it may hold.
class VANTRY_EXPORT MetaMetadataSet : public PropertyMap
{
public:
    VANTRY_CLASS_ALLOCATION

    using MetaAttributes = Templates::map<Types::UniversalLabel, Templates::SharedPtr<MetaAttribute>>;
    using const_iterator = MetaAttributes::const_iterator;

    explicit MetaMetadataSet(KLV::Key const & key);

    KLV::Key const & key() const noexcept { return key_; }

    /// \throws Exceptions::AlreadySet when the set has an attribute with this
    ///         label.
    void addMetaAttribute(Templates::SharedPtr<MetaAttribute> attribute);

    /// The attribute with this label; empty when there is none.
    Templates::SharedPtr<MetaAttribute> findMetaAttribute(Types::UniversalLabel const & label) const;

    /// All attributes, by label.
    const_iterator metaAttributesBegin() const { return attributes_.begin(); }
    const_iterator metaAttributesEnd() const { return attributes_.end(); }
    UInt32 metaAttributeCount() const { return static_cast<UInt32>(attributes_.size()); }

private:
    KLV::Key key_;
    MetaAttributes attributes_;
};

/// Whether keys, properties and all attributes are equal.
VANTRY_EXPORT bool operator==(MetaMetadataSet const & left, MetaMetadataSet const & right);

}}
