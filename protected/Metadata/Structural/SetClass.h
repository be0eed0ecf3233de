#pragma once

#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/Visitors/MetadataSetVisitor.h"
#include "Metadata/Structural/Visitors/NonConstMetadataSetVisitor.h"

/// \file
/// What makes the class of a structural metadata set complete, for its source.

/// The constructor of a class whose sets have the key `key`, and how it is
/// visited: as itself by a visitor that knows the class, as any set by others.
#define VANTRY_SET(Class, Base, key)                                                                  \
    Class::Class(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner) :   \
        Base(StructuralMetadataKeys::key(), metaMetadataSet, owner)                                   \
    {                                                                                                 \
    }                                                                                                 \
    void Class::accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor)                      \
    {                                                                                                 \
        if (auto * const structural = dynamic_cast<Visitors::NonConstMetadataSetVisitor *>(&visitor)) \
            structural->visit(*this);                                                                 \
        else                                                                                          \
            visitor.visit(*this);                                                                     \
    }                                                                                                 \
    void Class::accept(Metadata::Visitors::MetadataSetVisitor & visitor) const                        \
    {                                                                                                 \
        if (auto * const structural = dynamic_cast<Visitors::MetadataSetVisitor *>(&visitor))         \
            structural->visit(*this);                                                                 \
        else                                                                                          \
            visitor.visit(*this);                                                                     \
    }

/// The constructor for classes derived from `Class`.
#define VANTRY_BASE_SET(Class, Base)                                                          \
    Class::Class(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet, \
                 MetadataSetOwner * owner) :                                                  \
        Base(key, metaMetadataSet, owner)                                                     \
    {                                                                                         \
    }
