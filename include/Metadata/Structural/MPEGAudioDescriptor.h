#pragma once

#include "Metadata/Structural/GenericSoundEssenceDescriptor.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes an MPEG audio elementary stream (SMPTE 381M).
class VANTRY_EXPORT MPEGAudioDescriptor : public GenericSoundEssenceDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    MPEGAudioDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Greatest bits per second of the stream.
    Types::UInt32 const * mpegAudioBitRate() const;
    void mpegAudioBitRate(Types::UInt32 const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
