#pragma once

#include "Metadata/Structural/TrackableMetadataSet.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// A part of a sequence (SMPTE 377M).
class VANTRY_EXPORT StructuralComponent : public TrackableMetadataSet
{
public:
    ~StructuralComponent() override;

    /// Kind of the data: picture, sound, data, time code or descriptive
    /// metadata; see DataDefinitionULs.
    virtual void dataDefinition(Types::UniversalLabel const * value) = 0;
    virtual Types::UniversalLabel const * dataDefinition() const = 0;

    /// Length in edit units of the track; -1 when it isn't known.
    virtual void duration(Types::Length const * value) = 0;
    virtual Types::Length const * duration() const = 0;

protected:
    /// For a class derived from this one, with a key of its own.
    StructuralComponent(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                        MetadataSetOwner * owner);
};

}}}
