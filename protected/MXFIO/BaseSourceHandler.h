#pragma once

#include "MXFIO/AbstractPartitionWriter.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/Declarations.h"

namespace Vantry { namespace MXFIO {

class KLVSource;

/// A body partition that is to be written.
struct BodyPartition
{
    Packs::PartitionPack::PartitionStatus status;
    UInt64 offset;
    UInt64 previous;
    bool withMetadata;
    bool withIndex;
    bool withEssence;
    bool isFooter;
};

/// A stream of the file that a creator writes: its partitions, and how far it
/// has come. The writer is owned.
class BaseSourceHandler
{
public:
    VANTRY_CLASS_ALLOCATION

    using SerializationOrder = Metadata::PartitionMetadata::SerializationOrder;
    using Seconds = Templates::Rational<Int64>;

    BaseSourceHandler(BaseSourceHandler const &) = delete;
    BaseSourceHandler & operator=(BaseSourceHandler const &) = delete;
    virtual ~BaseSourceHandler();

    virtual void serializationOrder(SerializationOrder order) = 0;
    virtual void metadataSpace(UInt64 spareSpace, UInt64 maximumSpace) = 0;
    virtual void updateEssenceContainerData(Metadata::PartitionMetadata & metadata,
                                            Metadata::Structural::ContentStorage * contentStorage) = 0;
    virtual bool indexesAfterEndOfEssence() const = 0;
    virtual AbstractPartitionWriter::WrittenPack
    writePartition(Metadata::PartitionMetadata & metadata, BodyPartition const & partition, DataIO::Chain & chain) = 0;

    /// Whether the stream may begin in the header partition, and its
    /// partitions may have metadata.
    virtual bool isEssenceContainer() const = 0;

    /// Null for partitions without a stream.
    virtual KLVSource * source() const = 0;

    /// Appends the next piece and counts it.
    AbstractPartitionWriter::Status writeData(DataIO::Chain & chain, bool & complete,
                                              Templates::SharedPtr<FutureUpdater> & updater);

    /// Completes the metadata of the stream, all of which was written.
    void finish();
    bool finished() const { return finished_; }

    /// Counts from a new partition on.
    void restartPartition();

    /// Whether the present partition has so many units or seconds; 0 is no
    /// limit.
    bool partitionIsFull(unsigned int units, Seconds const & seconds) const;

    /// Whether the stream has been written for this long since it took over.
    bool turnIsOver(Seconds const & period) const;

    /// Takes over, the excess of the turn before left out.
    void beginTurn(Seconds const & secondsPerPartition);

    unsigned int bodySID() const { return writer_->bodySID(); }
    unsigned int indexByteCount(bool isFooter) const { return writer_->indexByteCount(isFooter); }
    void kagSize(unsigned int kagSize) { writer_->kagSize(kagSize); }

protected:
    explicit BaseSourceHandler(Templates::auto_ptr<AbstractPartitionWriter> writer);

    virtual void finalizeEssenceMetadata() = 0;

private:
    Templates::auto_ptr<AbstractPartitionWriter> const writer_;
    Seconds multiplexTime_;
    Seconds secondsInPartition_;
    unsigned int unitsInPartition_;
    bool finished_;
};

}}
