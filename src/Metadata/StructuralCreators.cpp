#include "Metadata/StructuralCreators.h"

#include "Metadata/MetadataSetFactory.h"
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
#include "Metadata/Structural/GenericPictureEssenceDescriptor.h"
#include "Metadata/Structural/GenericSoundEssenceDescriptor.h"
#include "Metadata/Structural/Identification.h"
#include "Metadata/Structural/JPEG2000PictureSubDescriptor.h"
#include "Metadata/Structural/MPEG2VideoDescriptor.h"
#include "Metadata/Structural/MPEGAudioDescriptor.h"
#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/MultipleDescriptor.h"
#include "Metadata/Structural/NetworkLocator.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/RGBAEssenceDescriptor.h"
#include "Metadata/Structural/SMPTE331MTimeDateItemDescriptor.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourceClip.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/StaticTrack.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/TextLocator.h"
#include "Metadata/Structural/TimecodeComponent.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Metadata/Structural/UnknownChunkSet.h"
#include "Metadata/Structural/VBIDataDescriptor.h"
#include "Metadata/Structural/WAVEAudioEssenceDescriptor.h"
#include "Metadata/Structural/WAVEAudioPhysicalDescriptor.h"

namespace Vantry { namespace Metadata {

namespace {

template <class Set>
MetadataSet * create(MetaMetadata::MetaMetadataSet const * metaMetadataSet, MetadataSetOwner * owner)
{
    return new Set(metaMetadataSet, owner);
}

}

void registerStructuralCreators(MetadataSetFactory & factory)
{
    using namespace Structural;
    namespace Keys = StructuralMetadataKeys;

    factory.registerMetadataSet(Keys::aes3AudioEssenceDescriptor(), create<AES3AudioEssenceDescriptor>);
    factory.registerMetadataSet(Keys::ancPacketsDescriptor(), create<ANCPacketsDescriptor>);
    factory.registerMetadataSet(Keys::cdciEssenceDescriptor(), create<CDCIEssenceDescriptor>);
    factory.registerMetadataSet(Keys::contentStorage(), create<ContentStorage>);
    factory.registerMetadataSet(Keys::dmSegment(), create<DMSegment>);
    factory.registerMetadataSet(Keys::dmSourceClip(), create<DMSourceClip>);
    factory.registerMetadataSet(Keys::essenceContainerData(), create<EssenceContainerData>);
    factory.registerMetadataSet(Keys::eventTrack(), create<EventTrack>);
    factory.registerMetadataSet(Keys::fileDescriptor(), create<FileDescriptor>);
    factory.registerMetadataSet(Keys::genericDataEssenceDescriptor(), create<GenericDataEssenceDescriptor>);
    factory.registerMetadataSet(Keys::genericPictureEssenceDescriptor(), create<GenericPictureEssenceDescriptor>);
    factory.registerMetadataSet(Keys::genericSoundEssenceDescriptor(), create<GenericSoundEssenceDescriptor>);
    factory.registerMetadataSet(Keys::identification(), create<Identification>);
    factory.registerMetadataSet(Keys::jpeg2000PictureSubDescriptor(), create<JPEG2000PictureSubDescriptor>);
    factory.registerMetadataSet(Keys::materialPackage(), create<MaterialPackage>);
    factory.registerMetadataSet(Keys::mpeg2VideoDescriptor(), create<MPEG2VideoDescriptor>);
    factory.registerMetadataSet(Keys::mpegAudioDescriptor(), create<MPEGAudioDescriptor>);
    factory.registerMetadataSet(Keys::multipleDescriptor(), create<MultipleDescriptor>);
    factory.registerMetadataSet(Keys::networkLocator(), create<NetworkLocator>);
    factory.registerMetadataSet(Keys::preface(), create<Preface>);
    factory.registerMetadataSet(Keys::rgbaEssenceDescriptor(), create<RGBAEssenceDescriptor>);
    factory.registerMetadataSet(Keys::sequence(), create<Sequence>);
    factory.registerMetadataSet(Keys::smpte331MTimeDateItemDescriptor(), create<SMPTE331MTimeDateItemDescriptor>);
    factory.registerMetadataSet(Keys::sourceClip(), create<SourceClip>);
    factory.registerMetadataSet(Keys::sourcePackage(), create<SourcePackage>);
    factory.registerMetadataSet(Keys::staticTrack(), create<StaticTrack>);
    factory.registerMetadataSet(Keys::textLocator(), create<TextLocator>);
    factory.registerMetadataSet(Keys::timecodeComponent(), create<TimecodeComponent>);
    factory.registerMetadataSet(Keys::timelineTrack(), create<TimelineTrack>);
    factory.registerMetadataSet(Keys::unknownChunkSet(), create<UnknownChunkSet>);
    factory.registerMetadataSet(Keys::vbiDataDescriptor(), create<VBIDataDescriptor>);
    factory.registerMetadataSet(Keys::waveAudioEssenceDescriptor(), create<WAVEAudioEssenceDescriptor>);
    factory.registerMetadataSet(Keys::waveAudioPhysicalDescriptor(), create<WAVEAudioPhysicalDescriptor>);
}

}}
