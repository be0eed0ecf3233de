#pragma once

#include "MXFIO/AbstractSIDGenerator.h"
#include "MXFIO/IndexTableGeneration.h"
#include "MXFIO/IndexTableSegmentType.h"
#include "Metadata/PartitionMetadata.h"
#include "Packs/PartitionPack.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/Containers.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace DataIO {
class Chain;
}
namespace GenericContainer {
class Source;
}
namespace GenericStream {
class Source;
}

namespace MXFIO {

class CreatorListener;
class KLVSource;

/// Makes a file, unit by unit, as the caller pulls it.
///
///     header partition      metadata, index, first essence
///     body partitions       metadata again if due, index, essence
///     index partitions      what the index tables get behind the essence
///     footer partition      metadata
///     random index pack
///
/// Of several containers each is written to its end, unless they are to take
/// turns. Sources belong to the creator. No more than one unit is in memory.
/// One thread at a time.
class VANTRY_EXPORT PullCreator
{
public:
    VANTRY_CLASS_ALLOCATION

    /// What the next pull gives.
    enum Status : int
    {
        PullHeader,
        /// Nothing: essence outside the file is read, so that its metadata
        /// get complete.
        PullExternalSources,
        PullBody,
        PullFooter,
        PullDone
    };

    using SerializationOrder = Metadata::PartitionMetadata::SerializationOrder;

    /// \param metadata              the header metadata, with a Preface
    /// \param metadataSpareSpace    bytes of fill behind the metadata of each
    ///                              partition, so that they can grow
    /// \param metadataMaximumSpace  bytes up to which spare space is added to
    ///                              metadata; 0 for any number
    /// \param runInSize             bytes that the caller writes ahead of the
    ///                              header partition; no place in the file
    ///                              counts them
    PullCreator(Templates::SharedPtr<Metadata::PartitionMetadata> metadata, UInt64 metadataSpareSpace,
                UInt64 metadataMaximumSpace, UInt64 runInSize);
    PullCreator(PullCreator const &) = delete;
    PullCreator & operator=(PullCreator const &) = delete;
    virtual ~PullCreator();

    /// Of the containers that are there, and those to come.
    void metadataSpareSpace(UInt64 bytes);
    void metadataMaximumSpace(UInt64 bytes);

    /// Whether a random index pack ends the file; it does unless told.
    void writeRIP(bool writeRIP);

    /// Whether the footer partition has metadata; it does unless told.
    void footerHasMetadata(bool footerHasMetadata);

    /// Each n-th partition behind the header has metadata, none when this is
    /// 0.
    void metadataRepetitionPeriod(unsigned int partitions);

    /// A new partition begins after so many units of a container; 0 for no
    /// such limit.
    void masterEditUnitsPerPartition(unsigned int editUnits);

    /// A new partition begins after so many seconds of a container; 0 for no
    /// such limit.
    void masterSecondsPerPartition(Templates::Rational<Int64> const & seconds);

    /// The next container takes over, with a new partition, after so many
    /// seconds of one; 0 when each is to be written to its end.
    void partitionMultiplexPeriod(Templates::Rational<Int64> const & seconds);

    /// Whether essence begins in the header partition; it does unless told.
    void headerPartitionHasEssence(bool headerPartitionHasEssence);

    /// Whether the parts of the header partition are aligned by their place in
    /// the file, run-in included, rather than in the partition.
    void runInKagAligned(bool runInKagAligned);

    /// The order of the metadata's sets.
    SerializationOrder serializationOrder() const;
    void serializationOrder(SerializationOrder order);

    /// The grid, in bytes, of partitions without essence.
    void nonEssenceKAGSize(unsigned int kagSize);

    /// The grid of the footer partition, when it is set last.
    void footerKagAlignSize(unsigned int kagSize);

    /// Whether a header partition without essence has the index of the first
    /// container.
    void useFirstContainerForIndexTableGenerationOnHeader(bool use);

    /// Whether index table segments are in partitions of their own, ahead of
    /// the body partition that follows.
    void createSeparatePartitionsForIndex(bool separate);

    /// \throws Exceptions::InvalidValue for null.
    void sidGenerator(Templates::auto_ptr<AbstractSIDGenerator> sidGenerator);

    /// Adds an essence container.
    ///
    /// \param duringEssence    what index table segments partitions get while
    ///                         there is essence to come
    /// \param afterEssence     what segments partitions behind it get
    /// \param externalEssence  read the essence, but write none of it
    /// \return the body SID, 0 for external essence
    /// \throws Exceptions::InvalidValue when a SID is 0, or the body SID has
    ///         been given before.
    /// \throws Exceptions::InvalidState as PartitionWriter.
    unsigned int addEssenceContainer(Templates::auto_ptr<GenericContainer::Source> source,
                                     IndexTableGeneration duringEssence, IndexTableGeneration afterEssence,
                                     bool externalEssence, IndexTableSegmentType segmentType);

    /// Adds a generic stream.
    ///
    /// \param kagSize  the grid of its partitions, in bytes
    /// \return the body SID
    /// \throws Exceptions::InvalidValue as `addEssenceContainer`.
    unsigned int addGenericStream(Templates::auto_ptr<GenericStream::Source> source, unsigned int kagSize);

    /// The sources in the file, by body SID; lent. Each goes when no partition
    /// of it is to come.
    Templates::map<unsigned int, KLVSource *> creatorSources() const;

    /// Adds a listener, once; lent.
    void addListener(CreatorListener & listener);
    void removeListener(CreatorListener & listener);

    /// Appends the next unit, which may be empty, and returns what is next.
    ///
    /// What a source throws passes through. Nothing is appended then, and the
    /// next pull is to be the same.
    ///
    /// \param partitionStatus  of a partition that the unit may be
    Status nextUnit(Packs::PartitionPack::PartitionStatus partitionStatus, DataIO::Chain & chain);

    /// The same. Header and footer have the status that the metadata can have,
    /// closed at best if `closed`; others are incomplete.
    Status nextUnit(bool closed, DataIO::Chain & chain);

    Status status() const;

private:
    class Impl;
    Impl * impl_;
};

}
}
