#include "Metadata/Structural/Visitors/NonConstDelegateMetadataSetVisitor.h"

#include "Metadata/Structural/AES3AudioEssenceDescriptor.h"
#include "Metadata/Structural/ANCPacketsDescriptor.h"
#include "Metadata/Structural/CDCIEssenceDescriptor.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/DMSegment.h"
#include "Metadata/Structural/DMSourceClip.h"
#include "Metadata/Structural/EssenceContainerData.h"
#include "Metadata/Structural/EventTrack.h"
#include "Metadata/Structural/FileDescriptor.h"
#include "Metadata/Structural/GenericDataEssenceDescriptor.h"
#include "Metadata/Structural/GenericDescriptor.h"
#include "Metadata/Structural/GenericPackage.h"
#include "Metadata/Structural/GenericPictureEssenceDescriptor.h"
#include "Metadata/Structural/GenericSoundEssenceDescriptor.h"
#include "Metadata/Structural/Identification.h"
#include "Metadata/Structural/JPEG2000PictureSubDescriptor.h"
#include "Metadata/Structural/Locator.h"
#include "Metadata/Structural/MPEG2VideoDescriptor.h"
#include "Metadata/Structural/MPEGAudioDescriptor.h"
#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/MultipleDescriptor.h"
#include "Metadata/Structural/NetworkLocator.h"
#include "Metadata/Structural/PhysicalDescriptor.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/RGBAEssenceDescriptor.h"
#include "Metadata/Structural/SMPTE331MTimeDateItemDescriptor.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourceClip.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/StaticTrack.h"
#include "Metadata/Structural/StructuralComponent.h"
#include "Metadata/Structural/SubDescriptor.h"
#include "Metadata/Structural/TextLocator.h"
#include "Metadata/Structural/TimecodeComponent.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Metadata/Structural/Track.h"
#include "Metadata/Structural/TrackableMetadataSet.h"
#include "Metadata/Structural/UnknownChunkSet.h"
#include "Metadata/Structural/VBIDataDescriptor.h"
#include "Metadata/Structural/WAVEAudioEssenceDescriptor.h"
#include "Metadata/Structural/WAVEAudioPhysicalDescriptor.h"

namespace Vantry { namespace Metadata { namespace Structural { namespace Visitors {

// NOLINTBEGIN(bugprone-macro-parentheses): types stand without
#define VANTRY_DELEGATE(Class, Base)                            \
    void NonConstDelegateMetadataSetVisitor::visit(Class & set) \
    {                                                           \
        visit(static_cast<Base &>(set));                        \
    }
// NOLINTEND(bugprone-macro-parentheses)

void NonConstDelegateMetadataSetVisitor::visit(MetadataSet &) {}

VANTRY_DELEGATE(TrackableMetadataSet, MetadataSet)
VANTRY_DELEGATE(Preface, TrackableMetadataSet)
VANTRY_DELEGATE(ContentStorage, TrackableMetadataSet)
VANTRY_DELEGATE(EssenceContainerData, TrackableMetadataSet)
VANTRY_DELEGATE(Sequence, TrackableMetadataSet)
VANTRY_DELEGATE(UnknownChunkSet, TrackableMetadataSet)
VANTRY_DELEGATE(GenericPackage, TrackableMetadataSet)
VANTRY_DELEGATE(MaterialPackage, GenericPackage)
VANTRY_DELEGATE(SourcePackage, GenericPackage)
VANTRY_DELEGATE(Track, TrackableMetadataSet)
VANTRY_DELEGATE(TimelineTrack, Track)
VANTRY_DELEGATE(EventTrack, Track)
VANTRY_DELEGATE(StaticTrack, Track)
VANTRY_DELEGATE(StructuralComponent, TrackableMetadataSet)
VANTRY_DELEGATE(SourceClip, StructuralComponent)
VANTRY_DELEGATE(DMSourceClip, SourceClip)
VANTRY_DELEGATE(DMSegment, StructuralComponent)
VANTRY_DELEGATE(TimecodeComponent, StructuralComponent)
VANTRY_DELEGATE(GenericDescriptor, TrackableMetadataSet)
VANTRY_DELEGATE(FileDescriptor, GenericDescriptor)
VANTRY_DELEGATE(GenericPictureEssenceDescriptor, FileDescriptor)
VANTRY_DELEGATE(CDCIEssenceDescriptor, GenericPictureEssenceDescriptor)
VANTRY_DELEGATE(MPEG2VideoDescriptor, CDCIEssenceDescriptor)
VANTRY_DELEGATE(RGBAEssenceDescriptor, GenericPictureEssenceDescriptor)
VANTRY_DELEGATE(GenericSoundEssenceDescriptor, FileDescriptor)
VANTRY_DELEGATE(MPEGAudioDescriptor, GenericSoundEssenceDescriptor)
VANTRY_DELEGATE(WAVEAudioEssenceDescriptor, GenericSoundEssenceDescriptor)
VANTRY_DELEGATE(AES3AudioEssenceDescriptor, WAVEAudioEssenceDescriptor)
VANTRY_DELEGATE(GenericDataEssenceDescriptor, FileDescriptor)
VANTRY_DELEGATE(ANCPacketsDescriptor, GenericDataEssenceDescriptor)
VANTRY_DELEGATE(VBIDataDescriptor, GenericDataEssenceDescriptor)
VANTRY_DELEGATE(MultipleDescriptor, FileDescriptor)
VANTRY_DELEGATE(SMPTE331MTimeDateItemDescriptor, FileDescriptor)
VANTRY_DELEGATE(PhysicalDescriptor, GenericDescriptor)
VANTRY_DELEGATE(WAVEAudioPhysicalDescriptor, PhysicalDescriptor)
VANTRY_DELEGATE(SubDescriptor, TrackableMetadataSet)
VANTRY_DELEGATE(JPEG2000PictureSubDescriptor, SubDescriptor)
VANTRY_DELEGATE(Locator, TrackableMetadataSet)
VANTRY_DELEGATE(NetworkLocator, Locator)
VANTRY_DELEGATE(TextLocator, Locator)
VANTRY_DELEGATE(Identification, MetadataSet)

}}}}
