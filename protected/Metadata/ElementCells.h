#pragma once

#include "MetaMetadata/MetaAttribute.h"
#include "Platform/Allocation.h"
#include "Templates/SharedPtr.h"

#include <cstddef>

namespace Vantry { namespace Metadata {

class Element;
class MetadataSet;

/// An element without value, of the class that goes with the type of the
/// attribute: in a cell, or in memory of its own when that is null.
Element * makeElement(void * cell, Templates::SharedPtr<MetaMetadata::AbstractMetaAttribute const> attribute,
                      MetadataSet & set, MetaMetadata::MetaElement const & metaElement);

/// Room for the elements that its schema gives a set, in one piece: they are
/// mostly made, walked over and destroyed together. Who makes an element here
/// also has it destroyed.
class ElementCells
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \throws Exceptions::BadAlloc.
    explicit ElementCells(std::size_t count);
    ElementCells(ElementCells const &) = delete;
    ElementCells & operator=(ElementCells const &) = delete;
    ~ElementCells();

    /// An element in the next free cell. There must be one.
    Element & create(Templates::SharedPtr<MetaMetadata::MetaAttribute> const & attribute, MetadataSet & set);

    /// Destroys an element that was made here, or anywhere.
    void destroy(Element * element) const;

private:
    unsigned char * const begin_;
    unsigned char * next_;
    unsigned char * const end_;
};

}}
