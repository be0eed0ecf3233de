#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Metadata/Structural/TrackableMetadataSet.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// The parts of a track in playing order (SMPTE 377M).
class VANTRY_EXPORT Sequence : public TrackableMetadataSet
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    Sequence(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// The parts that make up the sequence, in playing order.
    StructuralComponent * structuralComponent(unsigned int index) const;
    unsigned int structuralComponentsCount() const;
    void addStructuralComponent(unsigned int index, StructuralComponent * target);
    void removeStructuralComponent(unsigned int index);

    /// Kind of the data: picture, sound, data, time code or descriptive
    /// metadata; see DataDefinitionULs.
    Types::UniversalLabel const * dataDefinition() const;
    void dataDefinition(Types::UniversalLabel const * value);

    /// Length in edit units of the track; -1 when it isn't known.
    Types::Length const * duration() const;
    void duration(Types::Length const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
