#pragma once

#include "Metadata/Structural/FileDescriptor.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes the date and time in a system item (SMPTE 331M, 385M).
class VANTRY_EXPORT SMPTE331MTimeDateItemDescriptor : public FileDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    SMPTE331MTimeDateItemDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Date and time values per second.
    Types::Rational const * dateTimeRate() const;
    void dateTimeRate(Types::Rational const * value);

    /// Whether the time skips numbers as a drop frame time code does.
    Types::Boolean const * dateTimeDropFrame() const;
    void dateTimeDropFrame(Types::Boolean const * value);

    /// Whether the time comes embedded in other essence.
    Types::Boolean const * dateTimeEmbeded() const;
    void dateTimeEmbeded(Types::Boolean const * value);

    /// Label of the format of date and time.
    Types::UniversalLabel const * dateTimeKind() const;
    void dateTimeKind(Types::UniversalLabel const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
