#pragma once

#include "Metadata/Structural/TrackableMetadataSet.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes one aspect of essence, beside the descriptor that it belongs to
/// (SMPTE 377M).
class VANTRY_EXPORT SubDescriptor : public TrackableMetadataSet
{
public:
    ~SubDescriptor() override;

protected:
    /// For a class derived from this one, with a key of its own.
    SubDescriptor(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                  MetadataSetOwner * owner);
};

}}}
