#pragma once

#include "Metadata/Structural/Visitors/NonConstMetadataSetVisitor.h"

namespace Vantry { namespace Metadata { namespace Structural { namespace Visitors {

/// Passes each set on to the visit of its base class, up to that of
/// MetadataSet, which does nothing.
class VANTRY_EXPORT NonConstDelegateMetadataSetVisitor : public NonConstMetadataSetVisitor
{
public:
    void visit(MetadataSet & set) override;
    void visit(TrackableMetadataSet & set) override;
    void visit(Preface & set) override;
    void visit(ContentStorage & set) override;
    void visit(EssenceContainerData & set) override;
    void visit(Sequence & set) override;
    void visit(UnknownChunkSet & set) override;
    void visit(GenericPackage & set) override;
    void visit(MaterialPackage & set) override;
    void visit(SourcePackage & set) override;
    void visit(Track & set) override;
    void visit(TimelineTrack & set) override;
    void visit(EventTrack & set) override;
    void visit(StaticTrack & set) override;
    void visit(StructuralComponent & set) override;
    void visit(SourceClip & set) override;
    void visit(DMSourceClip & set) override;
    void visit(DMSegment & set) override;
    void visit(TimecodeComponent & set) override;
    void visit(GenericDescriptor & set) override;
    void visit(FileDescriptor & set) override;
    void visit(GenericPictureEssenceDescriptor & set) override;
    void visit(CDCIEssenceDescriptor & set) override;
    void visit(MPEG2VideoDescriptor & set) override;
    void visit(RGBAEssenceDescriptor & set) override;
    void visit(GenericSoundEssenceDescriptor & set) override;
    void visit(MPEGAudioDescriptor & set) override;
    void visit(WAVEAudioEssenceDescriptor & set) override;
    void visit(AES3AudioEssenceDescriptor & set) override;
    void visit(GenericDataEssenceDescriptor & set) override;
    void visit(ANCPacketsDescriptor & set) override;
    void visit(VBIDataDescriptor & set) override;
    void visit(MultipleDescriptor & set) override;
    void visit(SMPTE331MTimeDateItemDescriptor & set) override;
    void visit(PhysicalDescriptor & set) override;
    void visit(WAVEAudioPhysicalDescriptor & set) override;
    void visit(SubDescriptor & set) override;
    void visit(JPEG2000PictureSubDescriptor & set) override;
    void visit(Locator & set) override;
    void visit(NetworkLocator & set) override;
    void visit(TextLocator & set) override;
    void visit(Identification & set) override;
};

}}}}
