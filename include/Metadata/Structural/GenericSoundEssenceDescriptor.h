#pragma once

#include "Metadata/Structural/FileDescriptor.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes sound (SMPTE 377M).
class VANTRY_EXPORT GenericSoundEssenceDescriptor : public FileDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    GenericSoundEssenceDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Samples per second of each channel.
    Types::Rational const * audioSamplingRate() const;
    void audioSamplingRate(Types::Rational const * value);

    /// Whether the sampling rate is locked to the picture.
    Types::Boolean const * lockedUnlocked() const;
    void lockedUnlocked(Types::Boolean const * value);

    /// Level of the reference tone: dBm for 0 VU.
    Types::Int8 const * audioRefLevel() const;
    void audioRefLevel(Types::Int8 const * value);

    /// Use of the channels, as in AES3 channel status: 0 not told, 1 two-
    /// channel, 2 single channel, 3 primary and secondary, 4 stereo, 7 single
    /// channel at doubled rate, 8 left and 9 right of such stereo, 15
    /// multichannel.
    Types::UInt8 const * electroSpatialFormulation() const;
    void electroSpatialFormulation(Types::UInt8 const * value);

    /// Number of sound channels.
    Types::UInt32 const * channelCount() const;
    void channelCount(Types::UInt32 const * value);

    /// Bits of a sample.
    Types::UInt32 const * quantizationBits() const;
    void quantizationBits(Types::UInt32 const * value);

    /// Gain in dB that brings the level of speech to the normal one.
    Types::Int8 const * dialNorm() const;
    void dialNorm(Types::Int8 const * value);

    /// Label of the sound's compression; absent when there is none.
    Types::UniversalLabel const * soundEssenceCompression() const;
    void soundEssenceCompression(Types::UniversalLabel const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;

protected:
    /// For a class derived from this one, with a key of its own.
    GenericSoundEssenceDescriptor(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                                  MetadataSetOwner * owner);
};

}}}
