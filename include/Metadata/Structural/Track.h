#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Metadata/Structural/TrackableMetadataSet.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// One thing that goes on through a package: picture, sound, time code,
/// description (SMPTE 377M).
class VANTRY_EXPORT Track : public TrackableMetadataSet
{
public:
    ~Track() override;

    /// Number of the track, its own within the package; source clips refer to
    /// it.
    virtual void trackID(Types::UInt32 const * value);
    virtual Types::UInt32 const * trackID() const;

    /// In a package with essence in the file, bytes 12 to 15 of the element
    /// keys of the track's essence; 0 elsewhere.
    virtual void trackNumber(Types::UInt32 const * value);
    virtual Types::UInt32 const * trackNumber() const;

    /// Name of the track for people.
    virtual void trackName(Types::UTF16String const * value);
    virtual Types::UTF16String const * trackName() const;

    /// What happens along the track.
    virtual Sequence * sequence() const;
    void sequence(Sequence * target);

protected:
    /// For a class derived from this one, with a key of its own.
    Track(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);
};

}}}
