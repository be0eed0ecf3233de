#pragma once

#include "Metadata/Structural/TrackableMetadataSet.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// A chunk of a wave file that the writer didn't know, kept for whoever does
/// (SMPTE 382M).
class VANTRY_EXPORT UnknownChunkSet : public TrackableMetadataSet
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    UnknownChunkSet(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// The chunk's four letters.
    Types::UInt32 const * chunkID() const;
    void chunkID(Types::UInt32 const * value);

    /// Bytes of the chunk.
    Types::UInt32 const * chunkLength() const;
    void chunkLength(Types::UInt32 const * value);

    /// The chunk's bytes, in a stream of their own.
    Types::DataStream const * chunckData() const;
    void chunckData(Types::DataStream const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
