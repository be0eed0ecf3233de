#pragma once

#include "GenericContainer/AnalyzerEntry.h"
#include "GenericContainer/TimecodeInfo.h"
#include "Metadata/Structural/Declarations.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"
#include "Types/UniversalLabel.h"

#include <array>

namespace Vantry {
namespace Metadata {
class PartitionMetadata;
}

namespace GenericContainer {

/// What the builder of a container hands to its worker.
struct ContainerData
{
    /// Sizes in bytes of the items, by EssenceAnalyzerType.
    using ItemSizes = std::array<Int32, ANALYZER_DATA + 1>;

    /// \param metadata  may be empty
    /// \param package   lent; may be null
    ContainerData(Templates::SharedPtr<Metadata::PartitionMetadata> metadata,
                  Templates::Rational<int> const & packageRate, unsigned int kagSize,
                  Types::UniversalLabel const & essenceContainer, Metadata::Structural::SourcePackage * package);
    ~ContainerData();
    ContainerData(ContainerData const & other);
    ContainerData & operator=(ContainerData const & other) = delete;

    void defaultStartTimecode(bool override, unsigned char hours, unsigned char minutes, unsigned char seconds,
                              unsigned char frames);
    void generateTimecodeTrack(bool generate);
    void suppressTimecodeDiscontinuities(bool suppress);

    /// Bytes of a content package; 0 when they aren't set.
    UInt32 paddedPackageSize() const;

    Templates::SharedPtr<Metadata::PartitionMetadata> partitionMetadata;
    Metadata::Structural::SourcePackage * sourcePackage;

    /// Content packages per second.
    Templates::Rational<int> packageRate;
    UInt32 kagSize;

    /// Gives the time code; one of the analyzers, or null.
    EssenceAnalyzer * timecodeMaster = nullptr;
    Templates::SharedPtr<EssenceAnalyzer> system_;

    /// In the order of the content package.
    Templates::list<AnalyzerEntry> analyzers;

    /// Whether the index needs an entry for each content package.
    bool extendedTable = false;
    Types::UniversalLabel essenceContainerUL;
    bool indexFillPackets = false;
    bool multiplexAllEssence = false;

    /// Sizes that are to be filled to; -1 or 0 when they aren't set.
    Int32 editUnitSize = NO_SIZE;
    ItemSizes itemSizes = {NO_SIZE, NO_SIZE, NO_SIZE, NO_SIZE, NO_SIZE};

    TimecodeInfo timecode;

private:
    static constexpr Int32 NO_SIZE = -1;
};

}
}
