#pragma once

#include "Metadata/MetadataSet.h"
#include "Metadata/Structural/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// A set that tells which run of an application changed it last.
class VANTRY_EXPORT TrackableMetadataSet : public MetadataSet
{
public:
    ~TrackableMetadataSet() override;

    /// The application run that changed the set last: an Identification, by its
    /// generation.
    virtual Identification * generation() const;

    /// Has the set changed by this run of an application: stores its
    /// `thisGenerationUID`; null clears.
    void generation(Identification * identification);

protected:
    /// For a class derived from this one, with a key of its own.
    TrackableMetadataSet(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                         MetadataSetOwner * owner);
};

}}}
