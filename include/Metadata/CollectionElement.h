#pragma once

#include "Metadata/Element.h"
#include "Metadata/ValueHolder.h"
#include "Types/Collection.h"
#include "Types/Identifiers.h"

namespace Vantry { namespace Metadata {

/// An attribute with a row of plain values: an ArrayElement or a BatchElement.
class VANTRY_EXPORT CollectionElement : public Element, private ValueHolder
{
public:
    ~CollectionElement() override;

    void load(KLV::Value & value) override;
    bool empty() const override;
    UInt64 totalLength() const override;

    /// An item, counted from 0.
    ///
    /// \throws Exceptions::IndexOutOfBounds when there is none.
    virtual Types::SimpleDataType const & at(unsigned int index) const;

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

    /// Adds an item at the end, to a new collection where there is none.
    ///
    /// \throws Exceptions::InvalidChange for an item of another type than the
    ///         dictionary's, and when there are as many as the schema allows.
    ///         Where the schema wants several items from the start, only `set`
    ///         can give them.
    /// \throws Exceptions::InvalidElement for an item of another size than
    ///         those that are there.
    virtual void append(Templates::auto_ptr<Types::SimpleDataType> item);

    /// Deletes an item; those behind it move up.
    ///
    /// \throws Exceptions::IndexOutOfBounds when there is none.
    /// \throws Exceptions::InvalidChange when there are as few as the schema
    ///         allows.
    virtual void remove(unsigned int index);

protected:
    /// \param kind  Array or Batch
    CollectionElement(Types::Identifiers::Identifier kind,
                      Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute, MetadataSet & set);

    /// Tells the owner of the change and makes it, without a look at what the
    /// schema allows. Constructors of derived classes give their value so,
    /// because listeners look at the whole element.
    void replace(Templates::auto_ptr<Types::Collection> collection);

    /// Puts an item before the one at `index`, which may be `size()`.
    ///
    /// \throws Exceptions::InvalidChange, Exceptions::InvalidElement as
    ///         `append`.
    /// \throws Exceptions::IndexOutOfBounds when `index` is beyond `size()`.
    void insertItem(unsigned int index, Templates::auto_ptr<Types::SimpleDataType> item);

private:
    void serializeValue(DataIO::DataSink & sink) const override;

    Types::Identifiers::Identifier const kind_;
    Templates::auto_ptr<Types::Collection> value_;
};

}}
