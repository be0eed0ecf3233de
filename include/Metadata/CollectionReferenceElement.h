#pragma once

#include "Metadata/Element.h"
#include "Metadata/ReferenceHolder.h"
#include "Types/Collection.h"
#include "Types/Identifiers.h"
#include "Types/Reference.h"

namespace Vantry { namespace Metadata {

/// An attribute that refers to any number of sets: an ArrayReferenceElement or
/// a BatchReferenceElement.
class VANTRY_EXPORT CollectionReferenceElement : public Element, private ReferenceHolder
{
public:
    ~CollectionReferenceElement() override;

    void load(KLV::Value & value) override;
    bool empty() const override;
    UInt64 totalLength() const override;

    /// A reference, counted from 0.
    ///
    /// \throws Exceptions::IndexOutOfBounds when there is none.
    /// \throws Exceptions::InvalidType for an item behind the first that is
    ///         no reference: `set` doesn't look at those.
    virtual Types::Reference const & at(unsigned int index) const;

    /// Number of items; 0 also when there is no collection.
    virtual unsigned int size() const;

    /// The collection; null when there is none.
    virtual Types::Collection const * value() const;

    /// Replaces the collection; null takes it away.
    ///
    /// \throws Exceptions::InvalidChange for a collection of the other kind,
    ///         with more or fewer items than the schema allows, or with a
    ///         first item of another type than the dictionary's.
    virtual void set(Templates::auto_ptr<Types::Collection> collection);

    /// Adds a reference to a set at the end, to a new collection where there
    /// is none; strong or weak as the schema says.
    ///
    /// \throws Exceptions::MetadataSetReferenceNotAllowed for a set of a kind
    ///         that the schema doesn't list.
    /// \throws Exceptions::InvalidMetaAttribute for an attribute that has no
    ///         place in the schema of its set or holds no references there.
    /// \throws Exceptions::NotFound for a set without instance identifier.
    /// \throws Exceptions::InvalidChange for null, and when there are as many
    ///         as the schema allows. Where the schema wants several items from
    ///         the start, only `set` can give them.
    virtual void append(MetadataSet * target);

    /// Adds a reference, whatever it refers to: the set need not be there yet.
    ///
    /// \throws Exceptions::InvalidChange for a reference of another type than
    ///         the dictionary's, and when there are as many as the schema
    ///         allows.
    virtual void appendUnverifiedReference(Templates::auto_ptr<Types::Reference> reference);

    /// Deletes an item; those behind it move up.
    ///
    /// \throws Exceptions::IndexOutOfBounds when there is none.
    /// \throws Exceptions::InvalidChange when there are as few as the schema
    ///         allows.
    virtual void remove(unsigned int index);

protected:
    /// \param kind  Array or Batch
    CollectionReferenceElement(Types::Identifiers::Identifier kind,
                               Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute,
                               MetadataSet & set);

    /// Tells the owner of the change and makes it, without a look at what the
    /// schema allows. Constructors of derived classes give their value so,
    /// because listeners look at the whole element.
    void replace(Templates::auto_ptr<Types::Collection> collection);

    /// Put a reference before the one at `index`, which may be `size()`.
    ///
    /// \throws Exceptions::IndexOutOfBounds when `index` is beyond `size()`,
    ///         and what the forms of `append` throw.
    void insertSet(unsigned int index, MetadataSet const * target);
    void insertReference(unsigned int index, Templates::auto_ptr<Types::Reference> reference);

private:
    void serializeValue(DataIO::DataSink & sink) const override;
    Templates::auto_ptr<Types::Reference> referenceTo(MetadataSet const * target) const;
    void checkReference(Types::Reference const * reference) const;

    Types::Identifiers::Identifier const kind_;
    Templates::auto_ptr<Types::Collection> value_;
};

}}
