#include "MXFIO/ContainerMetadata.h"

#include "Exceptions/BrokenLink.h"
#include "Exceptions/Check.h"
#include "Exceptions/InvalidID.h"
#include "Exceptions/InvalidValue.h"
#include "Exceptions/NotFound.h"
#include "Exceptions/OperationNotAllowed.h"
#include "GenericContainer/RP224UniversalLabels.h"
#include "MXFIO/EssenceUtils.h"
#include "MXFIO/RateOf.h"
#include "Metadata/Element.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/EssenceContainerData.h"
#include "Metadata/Structural/FileDescriptor.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/StructuralMetadataULs.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "Types/Length.h"
#include "Types/Position.h"
#include "Types/UInt32.h"
#include "Types/UniversalLabel.h"

#include <algorithm>

namespace Vantry { namespace MXFIO {

namespace {

using Metadata::Structural::FileDescriptor;
using Metadata::Structural::SourcePackage;
using Metadata::Structural::TimelineTrack;
using Ratio = Templates::Rational<Int64>;

unsigned int valueOf(Types::UInt32 const * number)
{
    return number != nullptr ? number->value() : 0;
}

// Whether there is a descriptor of a kind that the schema doesn't have.
bool hasStrangeDescriptor(SourcePackage const & package)
{
    Metadata::Element const * const element =
        package.findElement(Metadata::Structural::StructuralMetadataULs::descriptor());
    return package.descriptor() == nullptr && element != nullptr && !element->empty();
}

// Edit units of a track in those of the container; -1/1 for what isn't told,
// and for what no file can hold.
Ratio converted(Types::Int64 const * editUnits, Ratio const & from, Ratio const & to)
{
    if (editUnits == nullptr || editUnits->value() < 0)
        return -1;
    try
    {
        return editUnitsConverter(editUnits->value(), from, to);
    }
    catch (Exceptions::InvalidValue const &)
    {
        return -1;
    }
}

// A track that tells a rate and has a sequence; null for others.
TimelineTrack const * countingTrack(SourcePackage const & package, unsigned int index)
{
    auto const * const track = dynamic_cast<TimelineTrack const *>(package.track(index));
    return track != nullptr && track->sequence() != nullptr && !!rateOf(track->editRate()) ? track : nullptr;
}

}

ContainerMetadata::ContainerMetadata(Metadata::Structural::EssenceContainerData & container) :
    container_(container),
    bodySID_(valueOf(container.bodySID())),
    indexSID_(valueOf(container.indexSID())),
    duration_(-1)
{
    VANTRY_CHECK_TEXT(container.bodySID() != nullptr, "bodySID != 0", InvalidID,
                      "missing bodySID from essenceContainerdata.");
    auto const * const metadata = dynamic_cast<Metadata::PartitionMetadata const *>(container.owner());
    VANTRY_CHECK_TEXT(metadata != nullptr, "metadata != 0", OperationNotAllowed,
                      "Invalid MetadataSetOwner. Only PartitionMetadata is supported.");
}

void ContainerMetadata::takeTracks(Ratio const & indexRate)
{
    editRate_ = indexRate;
    SourcePackage const * const source = package();
    unsigned int const count = source != nullptr ? source->tracksCount() : 0;
    for (unsigned int i = 0; i < count; ++i)
    {
        TimelineTrack const * const track = countingTrack(*source, i);
        if (track == nullptr)
            continue;

        if (track->trackNumber() != nullptr && track->trackID() != nullptr)
            trackIDs_[track->trackNumber()->value()] = track->trackID()->value();
        Ratio const rate = rateOf(track->editRate());
        if (!editRate_)
            editRate_ = rate;
        duration_ = std::max(duration_, converted(track->sequence()->duration(), rate, editRate_));
        origin_ = std::max(origin_, converted(track->origin(), rate, editRate_));
    }
}

ContainerMetadata::Wrapping ContainerMetadata::wrapping() const
{
    using Labels = GenericContainer::RP224UniversalLabels;

    SourcePackage const * const linkedPackage = package();
    VANTRY_CHECK_TEXT(linkedPackage != nullptr, "linkedPackage != 0", BrokenLink, "Source package not found.");
    auto const * const descriptor = dynamic_cast<FileDescriptor const *>(linkedPackage->descriptor());
    if (hasStrangeDescriptor(*linkedPackage))
        return NOT_TOLD;
    VANTRY_CHECK_TEXT(descriptor != nullptr, "descriptor != 0", BrokenLink, "File Descriptor not found.");
    Types::UniversalLabel const * const essenceContainerUL = descriptor->essenceContainer();
    VANTRY_CHECK_TEXT(essenceContainerUL != nullptr, "essenceContainerUL != 0", NotFound,
                      "Essence Container UL not found.");

    try
    {
        Labels::EssenceContainerInfo const info = Labels::essenceContainerInfo(*essenceContainerUL);
        if (info.mapping == Labels::UNKNOWN)
            return NOT_TOLD;
        return info.wrapKind == Labels::CLIP ? IS_CLIP : IS_NO_CLIP;
    }
    catch (Exceptions::InvalidValue const &)
    {
        // A way of wrapping that the mapping hasn't.
        return NOT_TOLD;
    }
}

unsigned int ContainerMetadata::trackID(unsigned int trackNumber) const
{
    auto const it = trackIDs_.find(trackNumber);
    VANTRY_CHECK_TEXT(it != trackIDs_.end(), "it != impl_ -> metadataInfo_.trackNumber2TrackID.end ()", NotFound,
                      "TrackNumber has no trackID correnpondent.");
    return it->second;
}

SourcePackage * ContainerMetadata::package() const
{
    return dynamic_cast<SourcePackage *>(container_.linkedPackage());
}

}}
