#pragma once

#include "Metadata/Structural/TrackableMetadataSet.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Where essence can be found (SMPTE 377M).
class VANTRY_EXPORT Locator : public TrackableMetadataSet
{
public:
    ~Locator() override;

protected:
    /// For a class derived from this one, with a key of its own.
    Locator(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);
};

}}}
