#pragma once

#include "KLV/Key.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry {
namespace MetaMetadata {
class MetaMetadataSet;
}

namespace Metadata {

class MetadataSet;
class MetadataSetOwner;

/// Makes sets of the class that goes with their key.
///
/// Classes are registered at start-up; the register has no lock.
class VANTRY_EXPORT MetadataSetFactory
{
public:
    VANTRY_CLASS_ALLOCATION

    /// Makes a set of one class.
    using Creator = MetadataSet * (*)(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// The factory of the process.
    static MetadataSetFactory & instance();

    virtual ~MetadataSetFactory();

    /// A new set without values, which belongs to the caller: a plain
    /// MetadataSet where no class is registered for the key.
    ///
    /// \throws Exceptions::InvalidMetadataSet when the schema is that of
    ///         another key.
    virtual MetadataSet * create(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                                 MetadataSetOwner * owner) = 0;

    /// Has sets with this key made by `creator` from now on; returns true.
    virtual bool registerMetadataSet(KLV::Key const & key, Creator creator) = 0;
};

}
}
