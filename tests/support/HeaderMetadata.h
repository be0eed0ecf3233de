#pragma once

#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/InvalidMetadataSet.h"
#include "Exceptions/KeyNotFound.h"
#include "Exceptions/NotEnoughData.h"
#include "KLV/KeyPredicates.h"
#include "Metadata/PartitionDictionary.h"
#include "Metadata/PartitionMetadata.h"
#include "Packs/PrimerPack.h"
#include "Schema/Dictionaries.h"
#include "support/BytesPacket.h"
#include "support/BytesSink.h"

#include <memory>

namespace Vantry { namespace Tests {

/// The next packet of a source, null when there is none; counts the bytes ahead
/// of it that belong to no packet.
inline Templates::auto_ptr<KLV::Packet> nextPacket(KLV::Reader & reader, UInt64 & skipped)
{
    try
    {
        UInt64 ahead = 0;
        Templates::auto_ptr<KLV::Packet> packet = reader.nextKLV(ahead, 65536);
        skipped += ahead;
        return packet;
    }
    catch (Exceptions::NotEnoughData const &)
    {
    }
    catch (Exceptions::KeyNotFound const &)
    {
    }
    catch (Exceptions::InvalidFormat const &)
    {
    }
    return Templates::auto_ptr<KLV::Packet>();
}

/// Calls `visit` with each packet in a run of bytes, and returns how many bytes
/// between them belong to none.
template <class Visit>
UInt64 forEachPacket(Bytes const & bytes, Visit visit)
{
    BytesSource source(bytes);
    KLV::Reader reader(source);
    UInt64 skipped = 0;
    while (auto const packet = nextPacket(reader, skipped))
        visit(*packet);
    return skipped;
}

/// Header metadata, loaded as a reader of files does by the schema that
/// applications have.
class HeaderMetadata
{
public:
    /// \param bytes  the primer pack and what follows it
    explicit HeaderMetadata(Bytes const & bytes)
    {
        skipped = forEachPacket(bytes, [&](KLV::Packet & packet) { take(packet); });
    }

    /// Whether there is a primer pack; without one nothing is loaded.
    explicit operator bool() const { return metadata_ != nullptr; }

    Metadata::PartitionMetadata & operator*() const { return *metadata_; }
    Metadata::PartitionMetadata * operator->() const { return metadata_.get(); }

    Bytes written(Metadata::PartitionMetadata::SerializationOrder order) const
    {
        BytesSink sink;
        metadata_->serialize(sink, true, order, true);
        return sink.bytes();
    }

    static Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary()
    {
        static auto const builtIn = ::Vantry::Schema::builtInDictionary();
        return builtIn;
    }

    /// Keys of packets that are no sets, and of sets that can't be read.
    std::vector<KLV::Key> others;
    std::vector<KLV::Key> lost;

    /// Bytes that belong to no packet.
    UInt64 skipped = 0;

private:
    void take(KLV::Packet & packet)
    {
        if (metadata_ == nullptr && Packs::isPrimerPack(packet.key()))
            begin(packet);
        else if (metadata_ != nullptr && packet.key()[4] == 2)
            load(packet);
        else if (metadata_ != nullptr && !KLV::isFillItem(packet.key()))
            others.push_back(packet.key());
    }

    void begin(KLV::Packet & primer)
    {
        metadata_ = std::make_unique<Metadata::PartitionMetadata>(
            Templates::auto_ptr<Metadata::PartitionDictionary>(new Metadata::PartitionDictionary(
                dictionary(), Templates::auto_ptr<Packs::PrimerPack>(new Packs::PrimerPack(primer)))));
    }

    // One bad set doesn't lose the others.
    void load(KLV::Packet & packet)
    {
        try
        {
            metadata_->load(packet);
        }
        catch (Exceptions::InvalidLength const &)
        {
            lost.push_back(packet.key());
        }
        catch (Exceptions::InvalidMetadataSet const &)
        {
            lost.push_back(packet.key());
        }
    }

    std::unique_ptr<Metadata::PartitionMetadata> metadata_;
};

}}
