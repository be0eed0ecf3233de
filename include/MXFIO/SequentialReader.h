#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Platform/Integers.h"
#include "Templates/SharedPtr.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace DataIO {
class DataSource;
}
namespace IndexTables {
class IndexTableSegment;
}
namespace KLV {
class Key;
class Packet;
}
namespace MetaMetadata {
class Dictionary;
}
namespace Metadata {
class PartitionMetadata;
}
namespace Packs {
class PartitionPack;
class PrimerPack;
class RandomIndexPack;
}

namespace MXFIO {

/// Reads a file from front to back, from a source that need not be able to
/// seek, and hands each thing it meets to a handler.
///
/// To be derived from: the handlers are to be overridden, and as they are they
/// drop what they get. Each owns what it is given. A packet whose value a
/// handler leaves unread is passed over as the packet goes; one that is kept
/// must be read before reading goes on.
///
/// One thread at a time.
class VANTRY_EXPORT SequentialReader
{
public:
    VANTRY_CLASS_ALLOCATION

    /// \param source      lent; it outlives the reader
    /// \param dictionary  the schema that header metadata is loaded with
    SequentialReader(DataIO::DataSource & source, Templates::SharedPtr<MetaMetadata::Dictionary> dictionary);
    SequentialReader(SequentialReader const &) = delete;
    SequentialReader & operator=(SequentialReader const &) = delete;
    virtual ~SequentialReader();

    /// Reads up to the next thing that has a handler and calls that.
    ///
    /// \param searchLimit  bytes that may lie ahead of a key
    /// \return false at the end of the source, also where it cuts off what is
    ///         read
    /// \throws Exceptions::InvalidFormat "This partition does not have a
    ///         primer at the beginning of the metadata.", and others as
    ///         KLV::Reader, the packs, Metadata::PartitionMetadata and
    ///         IndexTables::IndexTableSegment. The next call reads on.
    bool next(UInt64 searchLimit);

private:
    /// A partition; the metadata is null when it has none.
    virtual void handlePartition(Templates::auto_ptr<Packs::PartitionPack> partitionPack,
                                 Templates::auto_ptr<Metadata::PartitionMetadata> metadata);
    virtual void handleIndexTableSegment(Templates::auto_ptr<IndexTables::IndexTableSegment> segment);
    virtual void handleEssence(Templates::auto_ptr<KLV::Packet> packet);
    virtual void handleRIP(Templates::auto_ptr<Packs::RandomIndexPack> rip);
    virtual void handleFillItem(Templates::auto_ptr<KLV::Packet> packet);
    virtual void handleUnknown(Templates::auto_ptr<KLV::Packet> packet);

    /// Whether a packet among the sets that is no local set by its key is to
    /// be loaded too; here it isn't.
    virtual bool preserveUnknowMetadataKLV(KLV::Key const & key);

    class Impl;
    Impl * impl_;
};

}
}
