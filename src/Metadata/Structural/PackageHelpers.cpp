#include "Metadata/Structural/PackageHelpers.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/DataDefinitionULs.h"
#include "Metadata/Structural/EssenceContainerData.h"
#include "Metadata/Structural/GenericPictureEssenceDescriptor.h"
#include "Metadata/Structural/GenericSoundEssenceDescriptor.h"
#include "Metadata/Structural/MultipleDescriptor.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/SubDescriptors.h"
#include "Metadata/Structural/TimecodeComponent.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Metadata/Structural/TrackHelpers.h"
#include "Types/Boolean.h"
#include "Types/Position.h"
#include "Types/Rational.h"
#include "Types/UInt32.h"
#include "Types/UMID32.h"
#include "Types/UniversalLabel.h"
#include "Utils/RoundedUp.h"
#include "Utils/TimeCode.h"

#include <algorithm>

namespace Vantry { namespace Metadata { namespace Structural {

namespace {

// Appends the timeline tracks for which a test holds.
template <class Test>
void getTracks(GenericPackage const & package, Templates::list<TimelineTrack *> & tracks, Test test)
{
    unsigned int const count = package.tracksCount();
    for (unsigned int i = 0; i < count; ++i)
    {
        TimelineTrack * const track = dynamic_cast<TimelineTrack *>(package.track(i));
        if (track != nullptr && test(track))
            tracks.push_back(track);
    }
}

// Frames per second of a time code track, rounded up; 0 when it doesn't tell.
unsigned char frameRateOf(TimelineTrack const & track)
{
    Types::Rational const * const editRate = track.editRate();
    if (editRate == nullptr || editRate->isUndefined())
        return 0;
    Int64 const denominator = editRate->denominator();
    return static_cast<unsigned char>((editRate->numerator() + denominator - 1) / denominator);
}

// A time code from a file, whose numbers may not go together.
Utils::TimeCode timeCode(unsigned char frameRate, Int64 frames, bool dropFrame)
{
    bool const canDropFrames = frameRate == 24 || frameRate == 30 || frameRate == 60;
    if (frameRate == 0 || (dropFrame && !canDropFrames))
        return Utils::TimeCode();
    return Utils::TimeCode(frameRate, frames, dropFrame);
}

// The first descriptor for which a test holds: the package's own or, where
// that stands for several, one of those.
template <class Test>
FileDescriptor * findDescriptor(SourcePackage const & package, Test test)
{
    GenericDescriptor * const descriptor = package.descriptor();
    if (MultipleDescriptor const * const multiple = dynamic_cast<MultipleDescriptor *>(descriptor))
    {
        for (unsigned int i = 0; i < multiple->subDescriptorsCount(); ++i)
        {
            FileDescriptor * const sub = multiple->subDescriptor(i);
            if (sub != nullptr && test(*sub))
                return sub;
        }
        return nullptr;
    }

    FileDescriptor * const file = dynamic_cast<FileDescriptor *>(descriptor);
    return file != nullptr && test(*file) ? file : nullptr;
}

template <class Kind>
FileDescriptor * findDescriptorOfKind(SourcePackage const & package)
{
    return findDescriptor(package,
                          [](FileDescriptor & descriptor) { return dynamic_cast<Kind *>(&descriptor) != nullptr; });
}

FileDescriptor * descriptorByDataDefinition(SourcePackage const & package, TimelineTrack const & track)
{
    Sequence const * const sequence = track.sequence();
    Types::UniversalLabel const * const dataDefinition = sequence != nullptr ? sequence->dataDefinition() : nullptr;
    if (dataDefinition == nullptr)
        return nullptr;
    if (*dataDefinition == DataDefinitionULs::audio())
        return findDescriptorOfKind<GenericSoundEssenceDescriptor>(package);
    if (*dataDefinition == DataDefinitionULs::picture())
        return findDescriptorOfKind<GenericPictureEssenceDescriptor>(package);
    return nullptr;
}

bool hasLocator(SourcePackage const & package)
{
    auto const descriptors = withSubDescriptors(dynamic_cast<FileDescriptor *>(package.descriptor()));
    return std::any_of(descriptors.begin(), descriptors.end(),
                       [](FileDescriptor const * descriptor) { return descriptor->locatorsCount() != 0; });
}

ContentStorage const & contentStorageOf(PartitionMetadata const & metadata)
{
    ContentStorage const * const contentStorage = findPreface(metadata).contentStorage();
    VANTRY_CHECK(contentStorage != 0, InvalidFormat, "Preface has no ContentStorage");
    return *contentStorage;
}

}

void getAllTimelineTracks(GenericPackage const & package, Templates::list<TimelineTrack *> & tracks)
{
    getTracks(package, tracks, [](TimelineTrack const *) { return true; });
}

void getAllEssenceTracks(GenericPackage const & package, Templates::list<TimelineTrack *> & tracks)
{
    getTracks(package, tracks, isEssenceTrack);
}

TimelineTrack * getTimecodeTrack(GenericPackage const & package)
{
    Templates::list<TimelineTrack *> tracks;
    getTracks(package, tracks, isTimeCodeTrack);
    return tracks.empty() ? nullptr : tracks.front();
}

Templates::Rational<Int64> packageDurationInSeconds(GenericPackage const & package)
{
    Templates::Rational<Int64> const UNKNOWN(-1);

    Templates::list<TimelineTrack *> tracks;
    getAllEssenceTracks(package, tracks);
    if (tracks.empty())
        return UNKNOWN;

    Templates::Rational<Int64> first;
    Templates::Rational<Int64> last;
    for (TimelineTrack const * track : tracks)
    {
        Templates::Rational<Int64> start;
        Templates::Rational<Int64> end;
        if (!trackBoundsInSeconds(track, start, end))
            return UNKNOWN;
        if (track == tracks.front() || start < first)
            first = start;
        if (track == tracks.front() || end > last)
            last = end;
    }
    return last - first;
}

Utils::TimeCode packageDurationAsTimeCode(GenericPackage const & package)
{
    TimelineTrack const * const track = getTimecodeTrack(package);
    unsigned char const frameRate = track != nullptr ? frameRateOf(*track) : 0;
    Templates::Rational<Int64> const seconds = packageDurationInSeconds(package);
    if (frameRate == 0 || seconds == -1)
        return Utils::TimeCode();

    Templates::Rational<Int64> const editRate(track->editRate()->numerator(), track->editRate()->denominator());
    return timeCode(frameRate, Utils::roundedUp(seconds * editRate), isDropFrame(*track));
}

Utils::TimeCode startTimecode(GenericPackage const & package)
{
    TimelineTrack const * const track = getTimecodeTrack(package);
    if (track == nullptr)
        return Utils::TimeCode();

    auto const * const component = dynamic_cast<TimecodeComponent *>(track->sequence()->structuralComponent(0));
    Types::Position const * const start = component != nullptr ? component->startTimecode() : nullptr;
    if (start == nullptr || start->value() < 0)
        return Utils::TimeCode();

    Types::Boolean const * const dropFrame = component->dropFrame();
    return timeCode(frameRateOf(*track), start->value(), dropFrame != nullptr && dropFrame->value());
}

FileDescriptor * fileDescriptorForTrack(SourcePackage const & package, unsigned int trackID)
{
    bool const isOnlyTrack = package.tracksCount() == 1;
    return findDescriptor(package,
                          [&](FileDescriptor const & descriptor)
                          {
                              Types::UInt32 const * const linkedTrack = descriptor.linkedTrack();
                              return linkedTrack != nullptr ? linkedTrack->value() == trackID : isOnlyTrack;
                          });
}

Types::UniversalLabel const * essenceULOfTrack(SourcePackage const & package, TimelineTrack const * track)
{
    Types::UInt32 const * const trackID = track != nullptr ? track->trackID() : nullptr;
    if (trackID == nullptr)
        return nullptr;

    FileDescriptor const * descriptor = fileDescriptorForTrack(package, trackID->value());
    if (descriptor == nullptr)
        descriptor = descriptorByDataDefinition(package, *track);
    return descriptor != nullptr ? descriptor->essenceContainer() : nullptr;
}

bool isExternalEssence(PartitionMetadata const & metadata, SourcePackage const & package)
{
    if (!hasLocator(package))
        return false;

    ContentStorage const & contentStorage = contentStorageOf(metadata);
    VANTRY_CHECK(package.packageUID () != 0, InvalidFormat, "Package has no packageUID");

    EssenceContainerData const * const container = contentStorage.essenceContainerData(*package.packageUID());
    Types::UInt32 const * const bodySID = container != nullptr ? container->bodySID() : nullptr;
    return bodySID == nullptr || bodySID->value() == 0;
}

bool hasExternalEssence(PartitionMetadata const & metadata)
{
    ContentStorage const & contentStorage = contentStorageOf(metadata);
    for (unsigned int i = 0; i < contentStorage.packagesCount(); ++i)
    {
        SourcePackage const * const package = dynamic_cast<SourcePackage *>(contentStorage.package(i));
        if (package != nullptr && isExternalEssence(metadata, *package))
            return true;
    }
    return false;
}

}}}
