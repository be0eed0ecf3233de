#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Metadata/Structural/TrackableMetadataSet.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Owns the packages and says where in the file their essence is (SMPTE 377M).
class VANTRY_EXPORT ContentStorage : public TrackableMetadataSet
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    ContentStorage(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// All packages of the file, material and source.
    GenericPackage * package(unsigned int index) const;
    unsigned int packagesCount() const;
    void appendPackage(GenericPackage * target);
    void removePackage(unsigned int index);

    /// The essence containers that lie in the file, with the streams that carry
    /// them.
    EssenceContainerData * essenceContainerData(unsigned int index) const;
    unsigned int essenceContainerDataCount() const;
    void appendEssenceContainerData(EssenceContainerData * target);
    void removeEssenceContainerData(unsigned int index);

    /// The package with this `packageUID`, or null.
    GenericPackage * package(Types::UMID32 const & packageUID) const;

    /// The container with this `linkedPackageUID`, or null.
    EssenceContainerData * essenceContainerData(Types::UMID32 const & linkedPackageUID) const;

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
