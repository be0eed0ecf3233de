#pragma once

#include "Metadata/Structural/GenericDescriptor.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes essence that lies in a file (SMPTE 377M).
class VANTRY_EXPORT FileDescriptor : public GenericDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    FileDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Number of the track that is described, if only one is.
    Types::UInt32 const * linkedTrack() const;
    void linkedTrack(Types::UInt32 const * value);

    /// Edit units of the essence container per second.
    Types::Rational const * sampleRate() const;
    void sampleRate(Types::Rational const * value);

    /// Length of the container in units of the sample rate; absent while it
    /// isn't known.
    Types::Length const * containerDuration() const;
    void containerDuration(Types::Length const * value);

    /// Label of the essence container that carries what is described.
    Types::UniversalLabel const * essenceContainer() const;
    void essenceContainer(Types::UniversalLabel const * value);

    /// Label of the compression, as an application of long ago may have
    /// registered it; the coding labels of the derived descriptors tell more.
    Types::UniversalLabel const * codec() const;
    void codec(Types::UniversalLabel const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;

protected:
    /// For a class derived from this one, with a key of its own.
    FileDescriptor(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                   MetadataSetOwner * owner);
};

}}}
