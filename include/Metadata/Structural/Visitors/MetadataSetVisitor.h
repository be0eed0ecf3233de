#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Metadata/Visitors/MetadataSetVisitor.h"

namespace Vantry { namespace Metadata { namespace Structural { namespace Visitors {

/// Does something with a structural metadata set according to its class. A set
/// calls the visit of its own class; the visits of base classes are for
/// visitors that pass sets on to them. Sets of no class in here, and those
/// visited by another kind of visitor, call the visit of MetadataSet.
class VANTRY_EXPORT MetadataSetVisitor : public Metadata::Visitors::MetadataSetVisitor
{
public:
    using Metadata::Visitors::MetadataSetVisitor::visit;

    ~MetadataSetVisitor() override;

    virtual void visit(TrackableMetadataSet const & set) = 0;
    virtual void visit(Preface const & set) = 0;
    virtual void visit(ContentStorage const & set) = 0;
    virtual void visit(EssenceContainerData const & set) = 0;
    virtual void visit(Sequence const & set) = 0;
    virtual void visit(UnknownChunkSet const & set) = 0;
    virtual void visit(GenericPackage const & set) = 0;
    virtual void visit(MaterialPackage const & set) = 0;
    virtual void visit(SourcePackage const & set) = 0;
    virtual void visit(Track const & set) = 0;
    virtual void visit(TimelineTrack const & set) = 0;
    virtual void visit(EventTrack const & set) = 0;
    virtual void visit(StaticTrack const & set) = 0;
    virtual void visit(StructuralComponent const & set) = 0;
    virtual void visit(SourceClip const & set) = 0;
    virtual void visit(DMSourceClip const & set) = 0;
    virtual void visit(DMSegment const & set) = 0;
    virtual void visit(TimecodeComponent const & set) = 0;
    virtual void visit(GenericDescriptor const & set) = 0;
    virtual void visit(FileDescriptor const & set) = 0;
    virtual void visit(GenericPictureEssenceDescriptor const & set) = 0;
    virtual void visit(CDCIEssenceDescriptor const & set) = 0;
    virtual void visit(MPEG2VideoDescriptor const & set) = 0;
    virtual void visit(RGBAEssenceDescriptor const & set) = 0;
    virtual void visit(GenericSoundEssenceDescriptor const & set) = 0;
    virtual void visit(MPEGAudioDescriptor const & set) = 0;
    virtual void visit(WAVEAudioEssenceDescriptor const & set) = 0;
    virtual void visit(AES3AudioEssenceDescriptor const & set) = 0;
    virtual void visit(GenericDataEssenceDescriptor const & set) = 0;
    virtual void visit(ANCPacketsDescriptor const & set) = 0;
    virtual void visit(VBIDataDescriptor const & set) = 0;
    virtual void visit(MultipleDescriptor const & set) = 0;
    virtual void visit(SMPTE331MTimeDateItemDescriptor const & set) = 0;
    virtual void visit(PhysicalDescriptor const & set) = 0;
    virtual void visit(WAVEAudioPhysicalDescriptor const & set) = 0;
    virtual void visit(SubDescriptor const & set) = 0;
    virtual void visit(JPEG2000PictureSubDescriptor const & set) = 0;
    virtual void visit(Locator const & set) = 0;
    virtual void visit(NetworkLocator const & set) = 0;
    virtual void visit(TextLocator const & set) = 0;
    virtual void visit(Identification const & set) = 0;
};

}}}}
