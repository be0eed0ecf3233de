#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Metadata/Visitors/NonConstMetadataSetVisitor.h"

namespace Vantry { namespace Metadata { namespace Structural { namespace Visitors {

/// MetadataSetVisitor for sets that may be changed.
class VANTRY_EXPORT NonConstMetadataSetVisitor : public Metadata::Visitors::NonConstMetadataSetVisitor
{
public:
    using Metadata::Visitors::NonConstMetadataSetVisitor::visit;

    ~NonConstMetadataSetVisitor() override;

    virtual void visit(TrackableMetadataSet & set) = 0;
    virtual void visit(Preface & set) = 0;
    virtual void visit(ContentStorage & set) = 0;
    virtual void visit(EssenceContainerData & set) = 0;
    virtual void visit(Sequence & set) = 0;
    virtual void visit(UnknownChunkSet & set) = 0;
    virtual void visit(GenericPackage & set) = 0;
    virtual void visit(MaterialPackage & set) = 0;
    virtual void visit(SourcePackage & set) = 0;
    virtual void visit(Track & set) = 0;
    virtual void visit(TimelineTrack & set) = 0;
    virtual void visit(EventTrack & set) = 0;
    virtual void visit(StaticTrack & set) = 0;
    virtual void visit(StructuralComponent & set) = 0;
    virtual void visit(SourceClip & set) = 0;
    virtual void visit(DMSourceClip & set) = 0;
    virtual void visit(DMSegment & set) = 0;
    virtual void visit(TimecodeComponent & set) = 0;
    virtual void visit(GenericDescriptor & set) = 0;
    virtual void visit(FileDescriptor & set) = 0;
    virtual void visit(GenericPictureEssenceDescriptor & set) = 0;
    virtual void visit(CDCIEssenceDescriptor & set) = 0;
    virtual void visit(MPEG2VideoDescriptor & set) = 0;
    virtual void visit(RGBAEssenceDescriptor & set) = 0;
    virtual void visit(GenericSoundEssenceDescriptor & set) = 0;
    virtual void visit(MPEGAudioDescriptor & set) = 0;
    virtual void visit(WAVEAudioEssenceDescriptor & set) = 0;
    virtual void visit(AES3AudioEssenceDescriptor & set) = 0;
    virtual void visit(GenericDataEssenceDescriptor & set) = 0;
    virtual void visit(ANCPacketsDescriptor & set) = 0;
    virtual void visit(VBIDataDescriptor & set) = 0;
    virtual void visit(MultipleDescriptor & set) = 0;
    virtual void visit(SMPTE331MTimeDateItemDescriptor & set) = 0;
    virtual void visit(PhysicalDescriptor & set) = 0;
    virtual void visit(WAVEAudioPhysicalDescriptor & set) = 0;
    virtual void visit(SubDescriptor & set) = 0;
    virtual void visit(JPEG2000PictureSubDescriptor & set) = 0;
    virtual void visit(Locator & set) = 0;
    virtual void visit(NetworkLocator & set) = 0;
    virtual void visit(TextLocator & set) = 0;
    virtual void visit(Identification & set) = 0;
};

}}}}
