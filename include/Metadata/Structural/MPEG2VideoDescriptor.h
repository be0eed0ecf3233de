#pragma once

#include "Metadata/Structural/CDCIEssenceDescriptor.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes an MPEG video elementary stream (SMPTE 381M).
class VANTRY_EXPORT MPEG2VideoDescriptor : public CDCIEssenceDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    MPEG2VideoDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Whether the stream has one sequence header only, or all are equal.
    Types::Boolean const * singleSequence() const;
    void singleSequence(Types::Boolean const * value);

    /// Whether the number of B pictures between others never changes.
    Types::Boolean const * constantBFrames() const;
    void constantBFrames(Types::Boolean const * value);

    /// Coding of frames: 0 unknown, 1 progressive, 2 interlaced, 3 mixed.
    Types::UInt8 const * codedContentType() const;
    void codedContentType(Types::UInt8 const * value);

    /// Whether the stream's low delay flag is set, which rules out B pictures.
    Types::Boolean const * lowDelay() const;
    void lowDelay(Types::Boolean const * value);

    /// Whether all groups of pictures can be decoded without the one before.
    Types::Boolean const * closedGOP() const;
    void closedGOP(Types::Boolean const * value);

    /// Whether all groups of pictures have the same pattern.
    Types::Boolean const * identicalGOP() const;
    void identicalGOP(Types::Boolean const * value);

    /// Greatest distance between I pictures, in frames; 0 when it is unlimited.
    Types::UInt16 const * maxGOP() const;
    void maxGOP(Types::UInt16 const * value);

    /// Greatest number of B pictures between others.
    Types::UInt16 const * bPictureCount() const;
    void bPictureCount(Types::UInt16 const * value);

    /// Greatest bits per second of the stream.
    Types::UInt32 const * bitRate() const;
    void bitRate(Types::UInt32 const * value);

    /// Profile and level byte of the sequence extension (ISO 13818-2).
    Types::UInt8 const * profileAndLevel() const;
    void profileAndLevel(Types::UInt8 const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
