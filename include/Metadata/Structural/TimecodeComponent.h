#pragma once

#include "Metadata/Structural/StructuralComponent.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// A run of time code without a jump (SMPTE 377M).
class VANTRY_EXPORT TimecodeComponent : public StructuralComponent
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    TimecodeComponent(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Kind of the data: picture, sound, data, time code or descriptive
    /// metadata; see DataDefinitionULs.
    Types::UniversalLabel const * dataDefinition() const override;
    void dataDefinition(Types::UniversalLabel const * value) override;

    /// Length in edit units of the track; -1 when it isn't known.
    Types::Length const * duration() const override;
    void duration(Types::Length const * value) override;

    /// Frames per second that the time code counts, rounded up: 24, 25, 30, 50
    /// or 60.
    Types::UInt16 const * roundedTimecodeBase() const;
    void roundedTimecodeBase(Types::UInt16 const * value);

    /// Time code at the start of the component, in frames since midnight.
    Types::Position const * startTimecode() const;
    void startTimecode(Types::Position const * value);

    /// Whether frame numbers are dropped so that the time code follows the
    /// clock at 30000/1001 frames per second.
    Types::Boolean const * dropFrame() const;
    void dropFrame(Types::Boolean const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
