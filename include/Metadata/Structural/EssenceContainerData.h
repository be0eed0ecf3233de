#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Metadata/Structural/TrackableMetadataSet.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// An essence container in the file: the source package that describes it and
/// the streams that carry it (SMPTE 377M).
class VANTRY_EXPORT EssenceContainerData : public TrackableMetadataSet
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    EssenceContainerData(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Identifier of the source package that describes the container.
    Types::UMID32 const * linkedPackageUID() const;
    void linkedPackageUID(Types::UMID32 const * value);

    /// Number of the stream with the container's index table; absent or 0
    /// without one.
    Types::UInt32 const * indexSID() const;
    void indexSID(Types::UInt32 const * value);

    /// Number of the stream with the container's essence.
    Types::UInt32 const * bodySID() const;
    void bodySID(Types::UInt32 const * value);

    /// The package with `linkedPackageUID`, or null.
    GenericPackage * linkedPackage() const;

    /// Stores the `packageUID` of the package; null clears, and so does a
    /// package without one.
    void linkedPackage(GenericPackage * package);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
