#pragma once

#include "Metadata/Structural/GenericSoundEssenceDescriptor.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes PCM sound with, if there is one, its peak envelope (SMPTE 382M).
class VANTRY_EXPORT WAVEAudioEssenceDescriptor : public GenericSoundEssenceDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    WAVEAudioEssenceDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Bytes of a sample of all channels.
    Types::UInt16 const * blockAlign() const;
    void blockAlign(Types::UInt16 const * value);

    /// Place of the first frame in the sequence of frames whose lengths in
    /// samples differ, by SMPTE 382M: 0 to 4.
    Types::UInt8 const * sequenceOffset() const;
    void sequenceOffset(Types::UInt8 const * value);

    /// Average bytes per second, of all channels.
    Types::UInt32 const * avgBps() const;
    void avgBps(Types::UInt32 const * value);

    /// Label of the rule that says which channel carries what.
    Types::UniversalLabel const * channelAssignment() const;
    void channelAssignment(Types::UniversalLabel const * value);

    /// Version of the peak envelope.
    Types::UInt32 const * peakEnvelopeVersion() const;
    void peakEnvelopeVersion(Types::UInt32 const * value);

    /// Format of a peak point: 1 for 8 bits, 2 for 16 bits.
    Types::UInt32 const * peakEnvelopeFormat() const;
    void peakEnvelopeFormat(Types::UInt32 const * value);

    /// Points to a peak value: 1 for the greatest magnitude, 2 for the greatest
    /// and the smallest sample.
    Types::UInt32 const * pointsPerPeakValue() const;
    void pointsPerPeakValue(Types::UInt32 const * value);

    /// Samples of each channel to a peak value.
    Types::UInt32 const * peakEnvelopeBlockSize() const;
    void peakEnvelopeBlockSize(Types::UInt32 const * value);

    /// Channels in the peak envelope.
    Types::UInt32 const * peakChannels() const;
    void peakChannels(Types::UInt32 const * value);

    /// Number of peak frames, each with a peak value of every channel.
    Types::UInt32 const * peakFrames() const;
    void peakFrames(Types::UInt32 const * value);

    /// Sample at which the highest peak stands, counted from 0; -1 when it
    /// isn't known.
    Types::Position const * peakOfPeaksPosition() const;
    void peakOfPeaksPosition(Types::Position const * value);

    /// When the peak envelope was made.
    Types::Timestamp const * peakEnvelopeTimestamp() const;
    void peakEnvelopeTimestamp(Types::Timestamp const * value);

    /// The stream with the peak values.
    Types::DataStream const * peakEnvelopeData() const;
    void peakEnvelopeData(Types::DataStream const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;

protected:
    /// For a class derived from this one, with a key of its own.
    WAVEAudioEssenceDescriptor(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                               MetadataSetOwner * owner);
};

}}}
