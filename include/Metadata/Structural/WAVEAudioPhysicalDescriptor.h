#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Metadata/Structural/PhysicalDescriptor.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes a sound recording by what a broadcast wave file says of its origin
/// (SMPTE 382M).
class VANTRY_EXPORT WAVEAudioPhysicalDescriptor : public PhysicalDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    WAVEAudioPhysicalDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// How the sound was coded before, one line per step (EBU R98).
    Types::UTF16String const * codingHistory() const;
    void codingHistory(Types::UTF16String const * value);

    /// Security code of the quality report.
    Types::UInt32 const * fileSecurityReport() const;
    void fileSecurityReport(Types::UInt32 const * value);

    /// Security code of the sound.
    Types::UInt32 const * fileSecurityWave() const;
    void fileSecurityWave(Types::UInt32 const * value);

    /// Basic facts of the quality report.
    Types::UTF16String const * basicData() const;
    void basicData(Types::UTF16String const * value);

    /// When modulation began in the original recording.
    Types::UTF16String const * startModulation() const;
    void startModulation(Types::UTF16String const * value);

    /// Events that touch quality.
    Types::UTF16String const * qualityEvent() const;
    void qualityEvent(Types::UTF16String const * value);

    /// When modulation ended in the original recording.
    Types::UTF16String const * endModulation() const;
    void endModulation(Types::UTF16String const * value);

    /// Measured parameters of quality.
    Types::UTF16String const * qualityParameter() const;
    void qualityParameter(Types::UTF16String const * value);

    /// Remarks of the operator.
    Types::UTF16String const * operatorComment() const;
    void operatorComment(Types::UTF16String const * value);

    /// The cue sheet.
    Types::UTF16String const * cueSheet() const;
    void cueSheet(Types::UTF16String const * value);

    /// Chunks of the wave file that the writer didn't know, kept whole.
    UnknownChunkSet * unknownBWFChunk(unsigned int index) const;
    unsigned int unknownBWFChunksCount() const;
    void addUnknownBWFChunk(unsigned int index, UnknownChunkSet * target);
    void removeUnknownBWFChunk(unsigned int index);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;
};

}}}
