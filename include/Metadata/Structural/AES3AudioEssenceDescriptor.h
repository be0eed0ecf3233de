#pragma once

#include "Metadata/Structural/WAVEAudioEssenceDescriptor.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes PCM sound with what AES3 carries beside it (SMPTE 382M).
class VANTRY_EXPORT AES3AudioEssenceDescriptor : public WAVEAudioEssenceDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    AES3AudioEssenceDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// Emphasis of the channels, coded as in AES3 channel status.
    Types::UInt8 const * emphasis() const;
    void emphasis(Types::UInt8 const * value);

    /// Place in the essence of the first AES3 block start, in samples.
    Types::UInt16 const * blockStartOffset() const;
    void blockStartOffset(Types::UInt16 const * value);

    /// Use of the auxiliary bits, as in AES3 channel status.
    Types::UInt8 const * auxBitsMode() const;
    void auxBitsMode(Types::UInt8 const * value);

    /// How channel status is carried, one value per channel (SMPTE 382M): 0 not
    /// at all, 1 AES3 minimum, 2 AES3 standard, 3 fixed, 4 in a stream of the
    /// metadata, 5 beside the essence.
    Types::UInt8 const * channelStatusMode(unsigned int index) const;
    unsigned int channelStatusModeCount() const;
    void addChannelStatusMode(unsigned int index, Types::UInt8 const & value);
    void removeChannelStatusMode(unsigned int index);

    /// The channel status of each channel where it is fixed: 24 bytes each.
    Types::DataStream const * fixedChannelStatusData(unsigned int index) const;
    unsigned int fixedChannelStatusDataCount() const;
    void addFixedChannelStatusData(unsigned int index, Types::DataStream const & value);
    void removeFixedChannelStatusData(unsigned int index);

    /// How user data are carried, one value per channel, as SMPTE 382M codes
    /// it.
    Types::UInt8 const * userDataMode(unsigned int index) const;
    unsigned int userDataModeCount() const;
    void addUserDataMode(unsigned int index, Types::UInt8 const & value);
    void removeUserDataMode(unsigned int index);

    /// The user data of each channel where they are fixed: 24 bytes each.
    Types::DataStream const * fixedUserData(unsigned int index) const;
    unsigned int fixedUserDataCount() const;
    void addFixedUserData(unsigned int index, Types::DataStream const & value);
    void removeFixedUserData(unsigned int index);

    /// Number of the time code track that belongs to the sound.
    Types::UInt32 const * linkedTimecodeTrackID() const;
    void linkedTimecodeTrackID(Types::UInt32 const * value);

    /// Number of the data stream of SMPTE 337M that is described.
    Types::UInt8 const * smpte337mDataStreamNumber() const;
    void smpte337mDataStreamNumber(Types::UInt8 const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
