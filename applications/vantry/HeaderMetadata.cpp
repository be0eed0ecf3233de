#include "HeaderMetadata.h"

#include "DataIO/RandomAccessDataSource.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/InvalidLength.h"
#include "Exceptions/InvalidMetadataSet.h"
#include "Exceptions/KeyNotFound.h"
#include "Exceptions/NotEnoughData.h"
#include "FileRegion.h"
#include "KLV/KeyPredicates.h"
#include "KLV/Packet.h"
#include "KLV/Reader.h"
#include "MetaMetadata/Dictionary.h"
#include "Metadata/DarkMetadataSet.h"
#include "Metadata/PartitionDictionary.h"
#include "PacketFaults.h"
#include "PacketWalk.h"
#include "Packs/PrimerPack.h"
#include "Text.h"
#include "Warnings.h"

#include <algorithm>
#include <fmt/format.h>

namespace Vantry { namespace Application {

namespace {

int const CATEGORY_BYTE = 4;
unsigned char const GROUP_CATEGORY = 2;

/// Takes packets in and keeps account of the faults.
class Loader : public PacketListener
{
public:
    /// Up to `end`, the packets are those of the header metadata.
    Loader(DataIO::RandomAccessDataSource & file, UInt64 end,
           Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary) :
        file_(file), end_(end), dictionary_(dictionary)
    {
    }

    void value(KLV::Packet & packet) override
    {
        problem_.clear();
        if (KLV::isFillItem(packet.key()))
            return;
        if (!result_.metadata && Packs::isPrimerPack(packet.key()))
            return start(packet);

        if (!result_.metadata)
        {
            warn(fmt::format("the header metadata begin at offset {} without a primer pack",
                             packet.keyAbsoluteOffset()));
            start(Templates::auto_ptr<Packs::PrimerPack>(new Packs::PrimerPack));
        }
        load(packet);
    }

    void packet(KLV::Packet const & packet, UInt64 bytesThere) override
    {
        if (bytesThere < packet.length())
            warn(cutFault(packet, bytesThere));
        else if (!problem_.empty())
            warn(fmt::format("the packet at offset {} {}", packet.keyAbsoluteOffset(), problem_));
    }

    void gap(UInt64 offset, UInt64 size, bool) override { warn(gapFault(offset, size)); }

    void warn(std::string const & what) { warnings_.add(what); }

    HeaderMetadata finish()
    {
        if (!result_.metadata)
        {
            warn("there are no header metadata in this partition");
            start(Templates::auto_ptr<Packs::PrimerPack>(new Packs::PrimerPack));
        }
        result_.warnings = warnings_.all();
        return std::move(result_);
    }

private:
    void start(KLV::Packet & packet)
    {
        Templates::auto_ptr<Packs::PrimerPack> primer;
        try
        {
            primer.reset(new Packs::PrimerPack(packet));
        }
        catch (Exceptions::InvalidLength const & failure)
        {
            problem_ = "is no primer pack that can be read: " + narrow(failure.message());
            primer.reset(new Packs::PrimerPack);
        }
        start(primer);
    }

    void start(Templates::auto_ptr<Packs::PrimerPack> primer)
    {
        result_.metadata = std::make_unique<Metadata::PartitionMetadata>(
            Templates::auto_ptr<Metadata::PartitionDictionary>(new Metadata::PartitionDictionary(dictionary_, primer)));
    }

    void load(KLV::Packet & packet)
    {
        if (packet.key()[CATEGORY_BYTE] != GROUP_CATEGORY)
        {
            problem_ = "is no metadata set";
            return;
        }
        try
        {
            result_.metadata->load(packet);
        }
        catch (Exceptions::InvalidLength const & failure)
        {
            keep(packet, failure);
        }
        catch (Exceptions::InvalidMetadataSet const & failure)
        {
            keep(packet, failure);
        }
    }

    /// Keeps the bytes of a packet that couldn't be loaded, so that it is
    /// listed with what is there of it.
    void keep(KLV::Packet & packet, Exceptions::BaseException const & failure)
    {
        problem_ = "is no metadata set that can be read: " + narrow(failure.message());
        file_.seek(packet.keyAbsoluteOffset() + packet.key().size() + packet.berLength());
        KLV::Value value(file_, std::min(packet.length(), end_ - file_.absoluteOffset()));
        result_.metadata->addDarkMetadataSet(Templates::auto_ptr<Metadata::DarkMetadataSet>(
            new Metadata::DarkMetadataSet(packet.key(), packet.berLength(), value)));
    }

    DataIO::RandomAccessDataSource & file_;
    UInt64 const end_;
    Templates::SharedPtr<MetaMetadata::Dictionary> dictionary_;
    HeaderMetadata result_;
    Warnings warnings_;
    std::string problem_;
};

/// Passes over a fill item if the file stands before one.
void skipFill(DataIO::RandomAccessDataSource & file)
{
    UInt64 const start = file.absoluteOffset();
    try
    {
        UInt64 skipped = 0;
        if (KLV::isFillItem(KLV::Reader(file).nextKLV(skipped, 0)->key()))
            return;
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
    file.seek(start);
}

}

HeaderMetadata readHeaderMetadata(DataIO::RandomAccessDataSource & file, UInt64 size,
                                  Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary)
{
    skipFill(file);
    UInt64 const there = std::min(size, file.remaining());

    Loader loader(file, file.absoluteOffset() + there, dictionary);
    FileRegion region(file, there);
    walkPackets(region, loader);
    if (there < size)
        loader.warn(fmt::format("the file ends within the header metadata: {} of {} bytes are there", there, size));
    return loader.finish();
}

}}
