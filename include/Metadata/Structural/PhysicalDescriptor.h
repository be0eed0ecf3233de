#pragma once

#include "Metadata/Structural/GenericDescriptor.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes where essence came from when that was no file (SMPTE 377M).
class VANTRY_EXPORT PhysicalDescriptor : public GenericDescriptor
{
public:
    ~PhysicalDescriptor() override;

protected:
    /// For a class derived from this one, with a key of its own.
    PhysicalDescriptor(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                       MetadataSetOwner * owner);
};

}}}
