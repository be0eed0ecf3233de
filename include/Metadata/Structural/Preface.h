#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Metadata/Structural/TrackableMetadataSet.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// The root of the metadata: what the file is as a whole (SMPTE 377M).
class VANTRY_EXPORT Preface : public TrackableMetadataSet
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    Preface(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// The package to play when the user doesn't choose one.
    GenericPackage * primaryPackage() const;
    void primaryPackage(GenericPackage * target);

    /// The set that owns all packages of the file.
    ContentStorage * contentStorage() const;
    void contentStorage(ContentStorage * target);

    /// When the file was changed last.
    Types::Timestamp const * lastModifiedDate() const;
    void lastModifiedDate(Types::Timestamp const * value);

    /// Version of SMPTE 377M that the metadata follows: 258 for 1.2, 259 for
    /// 1.3.
    Types::VersionType const * version() const;
    void version(Types::VersionType const * value);

    /// Version of the object model; 1.
    Types::UInt32 const * objectModelVersion() const;
    void objectModelVersion(Types::UInt32 const * value);

    /// How complex the file is: the label of its operational pattern.
    Types::UniversalLabel const * operationalPattern() const;
    void operationalPattern(Types::UniversalLabel const * value);

    /// The applications that wrote or changed the file, each with the time of
    /// its change, oldest first.
    Identification * identification(unsigned int index) const;
    unsigned int identificationsCount() const;
    void addIdentification(unsigned int index, Identification * target);
    void removeIdentification(unsigned int index);

    /// Labels of the essence containers used in the file, or referred to by it.
    Types::UniversalLabel const * essenceContainer(unsigned int index) const;
    unsigned int essenceContainersCount() const;
    void appendEssenceContainer(Types::UniversalLabel const & value);
    void removeEssenceContainer(unsigned int index);

    /// Labels of the descriptive metadata schemes used in the file.
    Types::UniversalLabel const * dmScheme(unsigned int index) const;
    unsigned int dmSchemesCount() const;
    void appendDmScheme(Types::UniversalLabel const & value);
    void removeDmScheme(unsigned int index);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
