#include "EssenceTracks.h"

#include "EssenceForms.h"
#include "Exceptions/NotFound.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/EssenceContainerData.h"
#include "Metadata/Structural/GenericPictureEssenceDescriptor.h"
#include "Metadata/Structural/GenericSoundEssenceDescriptor.h"
#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/MultipleDescriptor.h"
#include "Metadata/Structural/PackageHelpers.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourceClip.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "TrackFacts.h"
#include "Types/Position.h"
#include "Types/Rational.h"
#include "Types/UInt32.h"
#include "Types/UMID32.h"
#include "Types/UniversalLabel.h"
#include "UntiedStream.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <map>

namespace Vantry { namespace Application {

using namespace Metadata::Structural;

namespace {

std::vector<TimelineTrack const *> essenceTracks(GenericPackage const & package)
{
    Templates::list<TimelineTrack *> all;
    getAllTimelineTracks(package, all);
    std::vector<TimelineTrack const *> tracks;
    std::copy_if(all.begin(), all.end(), std::back_inserter(tracks),
                 [](TimelineTrack const * track) { return TrackFacts(*track).isEssence(); });
    return tracks;
}

/// Which track of the material package plays a track of a source package.
class PlayedTracks
{
public:
    explicit PlayedTracks(ContentStorage const & storage)
    {
        for (unsigned i = 0; i < storage.packagesCount(); ++i)
            if (auto const * const material = dynamic_cast<MaterialPackage const *>(storage.package(i)))
                add(*material);
    }

    /// The own number of the track where none plays it.
    unsigned idOf(Types::UMID32 const * package, unsigned track) const
    {
        auto const found = package != nullptr ? ids_.find({*package, track}) : ids_.end();
        return found != ids_.end() ? found->second : track;
    }

private:
    void add(MaterialPackage const & material)
    {
        for (TimelineTrack const * track : essenceTracks(material))
            if (Sequence const * const sequence = track->sequence())
                for (unsigned i = 0; i < sequence->structuralComponentsCount(); ++i)
                    if (auto const * const clip = dynamic_cast<SourceClip const *>(sequence->structuralComponent(i)))
                        add(*track, *clip);
    }

    void add(Track const & track, SourceClip const & clip)
    {
        if (track.trackID() != nullptr && clip.sourcePackageUID() != nullptr && clip.sourceTrack() != nullptr)
            ids_.emplace(std::pair(*clip.sourcePackageUID(), clip.sourceTrack()->value()), track.trackID()->value());
    }

    std::map<std::pair<Types::UMID32, unsigned>, unsigned> ids_;
};

template <class Descriptor>
FileDescriptor const * firstOf(MultipleDescriptor const & several)
{
    for (unsigned i = 0; i < several.subDescriptorsCount(); ++i)
        if (dynamic_cast<Descriptor const *>(several.subDescriptor(i)) != nullptr)
            return several.subDescriptor(i);
    return nullptr;
}

/// Where no descriptor is linked to the track, the only one or the first of its
/// kind.
FileDescriptor const * descriptorOf(SourcePackage const & package, EssenceTrack const & track, unsigned ownID)
{
    FileDescriptor const * const linked = fileDescriptorForTrack(package, ownID);
    auto const * const several = dynamic_cast<MultipleDescriptor const *>(package.descriptor());
    if (linked != nullptr)
        return linked;
    if (several == nullptr)
        return dynamic_cast<FileDescriptor const *>(package.descriptor());
    if (track.kind == "picture")
        return firstOf<GenericPictureEssenceDescriptor>(*several);
    return track.kind == "sound" ? firstOf<GenericSoundEssenceDescriptor>(*several) : nullptr;
}

std::optional<Int64> durationOf(TrackFacts const & facts)
{
    UInt64 const LONGEST = std::numeric_limits<Int64>::max();

    Int64 const origin = facts.origin != nullptr ? facts.origin->value() : 0;
    if (!facts.duration || origin < 0 || *facts.duration > LONGEST - UInt64(origin))
        return std::nullopt;
    return static_cast<Int64>(*facts.duration) + origin;
}

EssenceTrack describe(SourcePackage const & package, TimelineTrack const & track, PlayedTracks const & played)
{
    unsigned const ownID = track.trackID() != nullptr ? track.trackID()->value() : 0;

    TrackFacts const facts(track);

    EssenceTrack result;
    result.id = played.idOf(package.packageUID(), ownID);
    result.kind = facts.kind;
    result.trackNumber = track.trackNumber() != nullptr ? track.trackNumber()->value() : 0;
    result.duration = durationOf(facts);
    Types::Rational const * const rate = facts.editRate;
    if (rate != nullptr && rate->numerator() > 0 && rate->denominator() > 0)
        result.editRate.assign(rate->numerator(), rate->denominator());

    FileDescriptor const * const descriptor = descriptorOf(package, result, ownID);
    Types::UniversalLabel const * const container = descriptor != nullptr ? descriptor->essenceContainer() : nullptr;
    if (result.kind == "picture")
        result.form = pictureForm(container, descriptor);
    else if (result.kind == "sound" && isEightChannelSound(container, result.trackNumber))
    {
        result.form = EssenceForm::EIGHT_CHANNELS;
        result.sound = eightChannelFormat(descriptor);
    }
    else if (std::optional<SoundFormat> const format = waveFormat(container, descriptor))
    {
        result.form = EssenceForm::PCM;
        result.sound = *format;
    }
    return result;
}

EssenceContainer describe(SourcePackage const & package, PlayedTracks const & played)
{
    EssenceContainer container;
    if (auto const * const descriptor = dynamic_cast<FileDescriptor const *>(package.descriptor()))
        container.wrapping = containerInfo(descriptor->essenceContainer()).wrapKind;

    for (TimelineTrack const * track : essenceTracks(package))
        container.tracks.push_back(describe(package, *track, played));
    return container;
}

/// Of a file whose metadata don't say where the essence is.
std::vector<EssenceContainer> onlyContainer(ContentStorage const & storage, PlayedTracks const & played)
{
    std::vector<EssenceContainer> containers;
    for (unsigned i = 0; i < storage.packagesCount(); ++i)
    {
        auto const * const package = dynamic_cast<SourcePackage const *>(storage.package(i));
        if (package != nullptr && isFilePackage(*package))
            containers.push_back(describe(*package, played));
    }
    return containers.size() == 1 ? containers : std::vector<EssenceContainer>();
}

ContentStorage const * contentStorage(Metadata::PartitionMetadata const & metadata)
{
    try
    {
        return findPreface(metadata).contentStorage();
    }
    catch (Exceptions::NotFound const &)
    {
        return nullptr;
    }
}

}

std::vector<EssenceContainer> essenceContainers(Metadata::PartitionMetadata const & metadata)
{
    ContentStorage const * const storage = contentStorage(metadata);
    if (storage == nullptr)
        return {};

    PlayedTracks const played(*storage);
    std::vector<EssenceContainer> containers;
    for (unsigned i = 0; i < storage->essenceContainerDataCount(); ++i)
    {
        EssenceContainerData const * const data = storage->essenceContainerData(i);
        auto const * const package =
            data != nullptr ? dynamic_cast<SourcePackage const *>(data->linkedPackage()) : nullptr;
        if (package == nullptr || data->bodySID() == nullptr || data->bodySID()->value() == 0)
            continue;

        EssenceContainer container = describe(*package, played);
        container.bodySID = data->bodySID()->value();
        container.indexSID = data->indexSID() != nullptr ? data->indexSID()->value() : 0;
        containers.push_back(std::move(container));
    }
    return containers.empty() ? onlyContainer(*storage, played) : containers;
}

}}
