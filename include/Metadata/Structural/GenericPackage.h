#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Metadata/Structural/TrackableMetadataSet.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// What material and source packages have in common: an identifier, a name,
/// dates and tracks (SMPTE 377M).
class VANTRY_EXPORT GenericPackage : public TrackableMetadataSet
{
public:
    ~GenericPackage() override;

    /// Identifies the package among all packages everywhere.
    virtual void packageUID(Types::UMID32 const * value);
    virtual Types::UMID32 const * packageUID() const;

    /// Name of the package for people.
    virtual void packageName(Types::UTF16String const * value);
    virtual Types::UTF16String const * packageName() const;

    /// When the package was created.
    virtual void packageCreationDate(Types::Timestamp const * value);
    virtual Types::Timestamp const * packageCreationDate() const;

    /// When the package was changed last.
    virtual void packageModifiedDate(Types::Timestamp const * value);
    virtual Types::Timestamp const * packageModifiedDate() const;

    /// Number of tracks.
    virtual unsigned int tracksCount() const;

    /// The first track with this `trackID`, or null.
    virtual Track * track(Types::UInt32 const & trackID) const;

    /// The tracks of the package.
    virtual Track * track(unsigned int index) const;
    void addTrack(unsigned int index, Track * target);
    void removeTrack(unsigned int index);

protected:
    /// For a class derived from this one, with a key of its own.
    GenericPackage(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                   MetadataSetOwner * owner);
};

}}}
