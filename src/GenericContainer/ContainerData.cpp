#include "GenericContainer/ContainerData.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidLength.h"
#include "Metadata/PartitionMetadata.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace Vantry { namespace GenericContainer {

ContainerData::ContainerData(Templates::SharedPtr<Metadata::PartitionMetadata> metadata,
                             Templates::Rational<int> const & packageRate, unsigned int kagSize,
                             Types::UniversalLabel const & essenceContainer,
                             Metadata::Structural::SourcePackage * package) :
    partitionMetadata(std::move(metadata)),
    sourcePackage(package),
    packageRate(packageRate),
    kagSize(kagSize),
    essenceContainerUL(essenceContainer)
{
}

ContainerData::~ContainerData() = default;
ContainerData::ContainerData(ContainerData const & other) = default;

void ContainerData::defaultStartTimecode(bool override, unsigned char hours, unsigned char minutes,
                                         unsigned char seconds, unsigned char frames)
{
    timecode.hasDefaultStart = true;
    timecode.overridesEssence = override;
    timecode.hours = hours;
    timecode.minutes = minutes;
    timecode.seconds = seconds;
    timecode.frames = frames;
}

void ContainerData::generateTimecodeTrack(bool generate)
{
    timecode.generateTimecodeTrack = generate;
}

void ContainerData::suppressTimecodeDiscontinuities(bool suppress)
{
    timecode.suppressTimecodeDiscontinuities = suppress;
}

UInt32 ContainerData::paddedPackageSize() const
{
    if (editUnitSize > 0)
        return static_cast<UInt32>(editUnitSize);
    if (std::any_of(itemSizes.begin(), itemSizes.end(), [](Int32 size) { return size < 0; }))
        return 0;

    UInt64 const sum = std::accumulate(itemSizes.begin(), itemSizes.end(), UInt64(0));
    VANTRY_CHECK(sum <= std::numeric_limits<UInt32>::max(), InvalidLength, "The items of an edit unit are too large");
    return static_cast<UInt32>(sum);
}

}}
