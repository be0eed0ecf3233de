#pragma once

#include "Metadata/Structural/FileDescriptor.h"
#include "Types/Declarations.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// Describes pictures. Positions and sizes count samples across and lines down,
/// of one field where the frame layout has separate fields (SMPTE 377M).
class VANTRY_EXPORT GenericPictureEssenceDescriptor : public FileDescriptor
{
public:
    /// A set without values; the arguments are those of MetadataSet.
    GenericPictureEssenceDescriptor(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner);

    /// The standard that the signal follows.
    Types::SignalStandard const * signalStandard() const;
    void signalStandard(Types::SignalStandard const * value);

    /// How lines lie in a frame: 0 full frame, 1 separate fields, 2 one field,
    /// 3 mixed fields, 4 segmented frame.
    Types::UInt8 const * frameLayout() const;
    void frameLayout(Types::UInt8 const * value);

    /// Samples in a line as stored.
    Types::UInt32 const * storedWidth() const;
    void storedWidth(Types::UInt32 const * value);

    /// Lines as stored, of one field where the frame layout has separate
    /// fields.
    Types::UInt32 const * storedHeight() const;
    void storedHeight(Types::UInt32 const * value);

    /// Lines that field 2 lies below field 1: 0 or -1.
    Types::Int32 const * storedF2Offset() const;
    void storedF2Offset(Types::Int32 const * value);

    /// Samples in a line that were sampled from the signal; the stored width if
    /// absent.
    Types::UInt32 const * sampledWidth() const;
    void sampledWidth(Types::UInt32 const * value);

    /// Lines that were sampled from the signal; the stored height if absent.
    Types::UInt32 const * sampledHeight() const;
    void sampledHeight(Types::UInt32 const * value);

    /// First sampled sample of a line, counted from the first stored one.
    Types::Int32 const * sampledXOffset() const;
    void sampledXOffset(Types::Int32 const * value);

    /// First sampled line, counted from the first stored one.
    Types::Int32 const * sampledYOffset() const;
    void sampledYOffset(Types::Int32 const * value);

    /// Lines to show; the sampled height if absent.
    Types::UInt32 const * displayHeight() const;
    void displayHeight(Types::UInt32 const * value);

    /// Samples of a line to show; the sampled width if absent.
    Types::UInt32 const * displayWidth() const;
    void displayWidth(Types::UInt32 const * value);

    /// First sample of a line to show, counted from the first sampled one.
    Types::Int32 const * displayXOffset() const;
    void displayXOffset(Types::Int32 const * value);

    /// First line to show, counted from the first sampled one.
    Types::Int32 const * displayYOffset() const;
    void displayYOffset(Types::Int32 const * value);

    /// Lines that field 2 is shown lower than field 1: 0 or -1.
    Types::Int32 const * displayF2Offset() const;
    void displayF2Offset(Types::Int32 const * value);

    /// Width to height of the whole picture as shown, 4/3 or 16/9.
    Types::Rational const * aspectRatio() const;
    void aspectRatio(Types::Rational const * value);

    /// Which area of the picture has content, as SMPTE 2016-1 codes it.
    Types::UInt8 const * activeFormatDescriptor() const;
    void activeFormatDescriptor(Types::UInt8 const * value);

    /// Line numbers of the signal that the first stored line of each field
    /// comes from.
    Types::Int32 const * videoLineMap(unsigned int index) const;
    unsigned int videoLineMapCount() const;
    void addVideoLineMap(unsigned int index, Types::Int32 const & value);
    void removeVideoLineMap(unsigned int index);

    /// Which alpha value is transparent: 0 the lowest, 1 the highest.
    Types::UInt8 const * alphaTransparency() const;
    void alphaTransparency(Types::UInt8 const * value);

    /// Label of the transfer function between light and samples.
    Types::UniversalLabel const * captureGamma() const;
    void captureGamma(Types::UniversalLabel const * value);

    /// Each stored image begins at a multiple of as many bytes; 0 and 1 without
    /// alignment.
    Types::UInt32 const * imageAlignmentOffset() const;
    void imageAlignmentOffset(Types::UInt32 const * value);

    /// Unused bytes ahead of each stored image.
    Types::UInt32 const * imageStartOffset() const;
    void imageStartOffset(Types::UInt32 const * value);

    /// Unused bytes behind each stored image.
    Types::UInt32 const * imageEndOffset() const;
    void imageEndOffset(Types::UInt32 const * value);

    /// Which field comes first in time: 1 or 2.
    Types::UInt8 const * fieldDominance() const;
    void fieldDominance(Types::UInt8 const * value);

    /// Label of the picture's compression.
    Types::UniversalLabel const * pictureEssenceCoding() const;
    void pictureEssenceCoding(Types::UniversalLabel const * value);

    void accept(Metadata::Visitors::NonConstMetadataSetVisitor & visitor) override;
    void accept(Metadata::Visitors::MetadataSetVisitor & visitor) const override;

protected:
    /// For a class derived from this one, with a key of its own.
    GenericPictureEssenceDescriptor(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                                    MetadataSetOwner * owner);
};

}}}
