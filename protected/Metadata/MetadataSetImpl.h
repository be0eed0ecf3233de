#pragma once

#include "Metadata/ElementCells.h"
#include "Metadata/MetadataSet.h"
#include "Templates/auto_ptr.h"

namespace Vantry { namespace Metadata {

/// What a set holds. It owns the elements.
class MetadataSet::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    Impl(KLV::Key const & theKey, MetaMetadata::MetaMetadataSet const * theSchema, MetadataSetOwner * theOwner);
    Impl(Impl const &) = delete;
    Impl & operator=(Impl const &) = delete;
    ~Impl();

    /// The element of a label, or null.
    Element * find(Types::UniversalLabel const & label) const noexcept;

    /// Adds the elements of the schema, empty ones of `set`.
    void appendSchema(MetadataSet & set);

    /// Puts an element in place of that with the same label.
    void put(Templates::auto_ptr<Element> element);

    void appendInvalid(Templates::auto_ptr<Element> element);

    KLV::Key const key;
    MetaMetadata::MetaMetadataSet const * const schema;
    MetadataSetOwner * const owner;
    unsigned char berLength;
    Templates::vector<Entry> elements;
    Templates::vector<Element *> invalid;

private:
    ElementCells cells_;
};

}}
