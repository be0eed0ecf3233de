#pragma once

#include "KLV/Key.h"
#include "MetaMetadata/AbstractMetaAttribute.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/SharedPtr.h"
#include "Types/UniversalLabel.h"

namespace Vantry {
namespace DataIO {
class DataSink;
}
namespace KLV {
class Packet;
}
namespace MetaMetadata {
class MetaMetadataSet;
}
namespace Types {
class UUID;
}

namespace Metadata {

class Element;
class MetadataSetOwner;
class PartitionDictionary;

namespace Visitors {
class MetadataSetVisitor;
class NonConstMetadataSetVisitor;
}

/// A local set of header metadata (SMPTE 377M, 9.3).
///
///     key, length field
///     per element   2          local tag
///                   1, 2 or 4  length of the value; the key says which
///                              value
///
/// It has an element for each attribute of its schema, with a value or
/// without, ordered by label. What a file holds beyond these, or in a form
/// that the schema doesn't know, is kept as invalid elements in the order of
/// the file, so that it can be written again.
///
/// One thread at a time.
class VANTRY_EXPORT MetadataSet
{
public:
    VANTRY_CLASS_ALLOCATION

    /// An element and its label.
    using Entry = Templates::pair<Types::UniversalLabel, Element *>;
    using iterator = Templates::vector<Entry>::const_iterator;
    using const_iterator = iterator;
    using invalid_iterator = Templates::vector<Element *>::const_iterator;
    using const_invalid_iterator = invalid_iterator;

    /// A set without values.
    ///
    /// \param key              the key
    /// \param metaMetadataSet  the schema, which outlives the set; null for
    ///                         none, so that all elements are invalid ones
    /// \param owner            who keeps the set and hears of it, or null. The
    ///                         set doesn't enter itself there.
    /// \throws Exceptions::InvalidMetadataSet when the schema is that of
    ///         another key.
    MetadataSet(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);
    MetadataSet(MetadataSet const &) = delete;
    MetadataSet & operator=(MetadataSet const &) = delete;

    /// Deletes the elements; the owner hears of each value.
    virtual ~MetadataSet();

    /// Reads the packet's value, once for a set.
    ///
    /// Nothing but the length of a value has to be right. What the set can't
    /// hold, because the tag means nothing, the attribute belongs elsewhere or
    /// the value isn't of its type, becomes an invalid element. Of an attribute
    /// that is there twice the last counts.
    ///
    /// \param dictionary  tells the labels of the tags
    /// \param strict      whether what PartitionDictionary::find allows
    ///                    strictly goes ahead of what it allows otherwise
    /// \throws Exceptions::InvalidMetadataSet for a key with tags or lengths
    ///         of other sizes; nothing is read.
    /// \throws Exceptions::InvalidLength when the value ends inside a tag or
    ///         a length; the elements ahead of it are there.
    virtual void load(KLV::Packet & packet, PartitionDictionary const & dictionary, bool strict);

    /// The schema, or null.
    virtual MetaMetadata::MetaMetadataSet const * metaMetadataSet() const;
    virtual KLV::Key const & key() const;

    /// What other sets refer to this one by; null when it has none.
    virtual Types::UUID const * instanceUID() const;

    /// The element of an attribute of the schema.
    ///
    /// \throws Exceptions::NotFound when the schema doesn't have it.
    virtual Element & find(Types::UniversalLabel const & label);
    virtual Element const & find(Types::UniversalLabel const & label) const;

    /// Number of attributes of the schema.
    virtual unsigned int size() const;

    /// Writes key, length and all elements with values, by label.
    ///
    /// \param includeInvalid  write also the invalid elements behind them
    /// \throws Exceptions::LocalTagNotFound when the primer lacks a label.
    /// \throws Exceptions::InvalidFormat when the length doesn't fit into
    ///         `berLength()` bytes; nothing is written.
    /// \throws Exceptions::InvalidElementLength, Exceptions::IOError as
    ///         Element::serialize.
    virtual void serialize(DataIO::DataSink & sink, PartitionDictionary const & dictionary, bool includeInvalid) const;

    /// Bytes that `serialize` writes.
    virtual UInt64 serializedSize(bool includeInvalid) const;

    virtual void accept(Visitors::NonConstMetadataSetVisitor & visitor);
    virtual void accept(Visitors::MetadataSetVisitor & visitor) const;

    /// The element of an attribute of the schema; null when that doesn't have
    /// it.
    Element * findElement(Types::UniversalLabel const & label) noexcept;
    Element const * findElement(Types::UniversalLabel const & label) const noexcept;

    /// Who keeps the set, or null.
    MetadataSetOwner * owner() const noexcept;

    /// Bytes of the length field: 4, or as read. The owner doesn't hear of a
    /// change, so make it ahead of asking a partition for its size.
    unsigned char berLength() const noexcept;
    void berLength(unsigned char berLength) noexcept;

    /// The elements of the schema's attributes, by label.
    iterator begin() noexcept;
    iterator end() noexcept;
    const_iterator begin() const noexcept;
    const_iterator end() const noexcept;

    /// The invalid elements, in the order of the file.
    invalid_iterator invalidBegin() noexcept;
    invalid_iterator invalidEnd() noexcept;
    const_invalid_iterator invalidBegin() const noexcept;
    const_invalid_iterator invalidEnd() const noexcept;
    unsigned int invalidSize() const noexcept;

    /// Adds an invalid element without a value and returns it.
    Element & createInvalidElement(Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute);

    /// Deletes an invalid element.
    ///
    /// \throws Exceptions::NotFound when it is none of this set's.
    void removedInvalidElement(Element const * element);

    /// A copy with a new instance identifier, given to the owner. It doesn't
    /// refer to other sets, except that with `deep` the sets that this one
    /// owns are copied too, and their copies belong to the copy. The copy
    /// refers to this set's attributes, so their dictionary outlives it.
    ///
    /// \param owner  who gets the copies; null for the owner of this set. If
    ///               there is none either, the copy belongs to the caller.
    /// \throws Exceptions::InvalidFormat when the set owns itself by way of
    ///         others.
    MetadataSet * clone(bool deep, MetadataSetOwner * owner) const;

    /// Adds required attributes without a value: they keep a partition open.
    ///
    /// This and the next five pass over invalid elements. "Conditional" are
    /// attributes whose presence depends on what the metadata mean, which the
    /// schema marks by the property `RequiresSemanticsValidation`; the first
    /// two pass over them. A distinguished value says "not known": an element
    /// whose bytes start with it has that value.
    ///
    /// \throws Exceptions::NotFound when an attribute lacks the property; so
    ///         do the next five.
    void openElements(Templates::vector<Element *> & elements) const;

    /// Adds best effort attributes without a value or with the distinguished one:
    /// they keep a partition incomplete.
    void incompleteElements(Templates::vector<Element *> & elements) const;

    /// Adds conditional attributes without a value.
    void possiblyOpenElements(Templates::vector<Element *> & elements) const;

    /// Adds conditional attributes with the distinguished value.
    void possiblyIncompleteElements(Templates::vector<Element *> & elements) const;

    /// Adds conditional attributes with a value.
    void possiblyForbiddenElements(Templates::vector<Element *> & elements) const;

    /// Adds conditional attributes without a value or with the distinguished one.
    void getSemanticsValidationElements(Templates::vector<Element *> & elements) const;

private:
    class Impl;
    friend class SetCloner;
    friend class SetLoader;

    Impl * impl_;
};

}
}
