#pragma once

#include "MetaMetadata/AbstractMetaAttribute.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"
#include "Types/UniversalLabel.h"

namespace Vantry {
namespace DataIO {
class DataSink;
}
namespace KLV {
class Value;
}
namespace MetaMetadata {
class MetaAttribute;
class MetaElement;
}

/// Header metadata as SMPTE 377M defines it: sets of attributes that refer to
/// each other.
namespace Metadata {

class MetadataSet;
class PartitionDictionary;

namespace Visitors {
class ElementVisitor;
class NonConstElementVisitor;
}

/// An attribute as it stands in a set, with its value or without.
///
/// Setting a value holds it against the schema; loading one takes what the
/// file says. Each change is told to the owner of the set before it is made,
/// and doesn't take place when that throws. So does what becomes of the value
/// when the element goes.
///
/// An element belongs to its set and is for one thread at a time.
class VANTRY_EXPORT Element
{
private:
    /// Writes the value alone.
    virtual void serializeValue(DataIO::DataSink & sink) const = 0;

public:
    VANTRY_CLASS_ALLOCATION

    Element(Element const &) = delete;
    Element & operator=(Element const &) = delete;
    virtual ~Element();

    /// Takes a value from a file in place of an earlier one, without a look
    /// at what the schema allows.
    ///
    /// \throws Exceptions::InvalidMetaAttribute for an attribute that has no
    ///         place in the schema of the set.
    /// \throws Exceptions::InvalidLength, Exceptions::InvalidValue when the
    ///         bytes don't make a value of the type.
    /// \throws Exceptions::NoFactory when the type can't be made.
    virtual void load(KLV::Value & value) = 0;

    /// What is known of the attribute.
    virtual Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> metaAttribute() const;

    /// The set that holds the element.
    virtual MetadataSet & metadataSet() const;

    /// Whether there is no value. A collection without items is one.
    virtual bool empty() const = 0;

    /// Bytes of the value in 16 bits: longer ones wrap. 0 where there is no
    /// value.
    virtual UInt64 totalLength() const = 0;

    virtual void accept(Visitors::NonConstElementVisitor & visitor) = 0;
    virtual void accept(Visitors::ElementVisitor & visitor) const = 0;

    /// Writes local tag, length and value; nothing when there is no value.
    ///
    /// \param dictionary         tells the tag of a known attribute; an unknown
    ///                           one has that of the file
    /// \param lengthFieldLength  bytes of the length: 1, 2 or 4. With any
    ///                           other number there is no length.
    /// \throws Exceptions::LocalTagNotFound when the primer lacks the label.
    /// \throws Exceptions::InvalidElementLength "Type size exceeded" when the
    ///         length doesn't fit into its field.
    /// \throws Exceptions::IOError when the sink fails.
    virtual void serialize(DataIO::DataSink & sink, PartitionDictionary const & dictionary,
                           int lengthFieldLength) const;

    /// An element of the same class, attribute and value for another set, or
    /// for the same.
    virtual Templates::auto_ptr<Element> clone(MetadataSet & set) = 0;

    /// What the dictionary knows of the attribute; null when it is unknown.
    MetaMetadata::MetaElement const * metaElement() const noexcept { return metaElement_; }

    /// The attribute's place in the schema of the set; null when it has none.
    MetaMetadata::MetaAttribute const * placeInSchema() const noexcept { return placeInSchema_; }

    /// The label; MetadataULs::null() of an unknown attribute.
    Types::UniversalLabel const & label() const noexcept;

protected:
    Element(Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute, MetadataSet & set);

private:
    Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute_;
    MetaMetadata::MetaElement const * metaElement_;
    MetaMetadata::MetaAttribute const * placeInSchema_;
    MetadataSet & set_;
};

}
}
