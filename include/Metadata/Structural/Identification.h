#pragma once

#include "Metadata/MetadataSet.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// An application that wrote or changed the file (SMPTE 377M).
class VANTRY_EXPORT Identification : public MetadataSet
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    Identification(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Identifies this run of the application; sets that it changed refer to it
    /// by their generation.
    Types::UUID const * thisGenerationUID() const;
    void thisGenerationUID(Types::UUID const * value);

    /// Maker of the application.
    Types::UTF16String const * companyName() const;
    void companyName(Types::UTF16String const * value);

    /// Name of the application.
    Types::UTF16String const * productName() const;
    void productName(Types::UTF16String const * value);

    /// Version of the application, as numbers.
    Types::ProductVersion const * productVersion() const;
    void productVersion(Types::ProductVersion const * value);

    /// Version of the application, as text for people.
    Types::UTF16String const * versionString() const;
    void versionString(Types::UTF16String const * value);

    /// Identifies the application whatever its version is.
    Types::UUID const * productUID() const;
    void productUID(Types::UUID const * value);

    /// When the application changed the file.
    Types::Timestamp const * modifiedDate() const;
    void modifiedDate(Types::Timestamp const * value);

    /// Version of the library that the application wrote the file with.
    Types::ProductVersion const * toolkitVersion() const;
    void toolkitVersion(Types::ProductVersion const * value);

    /// Operating system and library that the file was written with.
    Types::UTF16String const * platform() const;
    void platform(Types::UTF16String const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
