#include "EditUnitCount.h"

#include "DataIO/RandomAccessDataSource.h"
#include "EssenceStream.h"
#include "Exceptions/InvalidFormat.h"
#include "Exceptions/KeyNotFound.h"
#include "Exceptions/NotEnoughData.h"
#include "FileRegion.h"
#include "IndexSurvey.h"
#include "KLV/KeyPredicates.h"
#include "KLV/Packet.h"
#include "KLV/Reader.h"
#include "KeyName.h"
#include "PacketFaults.h"
#include "PacketWalk.h"
#include "Packs/PartitionPack.h"
#include "Packs/PrimerPack.h"
#include "Packs/RandomIndexPack.h"
#include "Warnings.h"

#include <algorithm>
#include <limits>

namespace Vantry { namespace Application {

namespace {

UInt64 const LONGEST_KEY_AND_LENGTH = 16 + 9;

/// Whether a packet in a body is of essence, or of what takes its place, such
/// as encrypted triplets. In a cut file, the pack of the next partition may be
/// the last thing there.
bool isOfEssence(KLV::Key const & key)
{
    if (KLV::isEssence(key))
        return true;
    return !KLV::isFillItem(key) && !isIndexTableSegment(key) && !KLV::isMetadataSet(key) &&
           !Packs::isPartitionPack(key) && !Packs::isPrimerPack(key) && !Packs::isRandomIndexPack(key);
}

/// Packets of the system item (SMPTE 379M) go with elements and are none.
bool isOfSystemItem(KLV::Key const & key)
{
    int const ITEM_BYTE = 12;
    return KLV::isEssence(key) && (key[ITEM_BYTE] == 0x04 || key[ITEM_BYTE] == 0x14);
}

/// Where a packet ends by its own account.
UInt64 endOf(KLV::Packet const & packet)
{
    UInt64 const start = packet.keyAbsoluteOffset();
    return start + std::min(packet.klvLength(), std::numeric_limits<UInt64>::max() - start);
}

/// The packet at a place in the file; null when there is none.
Templates::auto_ptr<KLV::Packet> packetAt(DataIO::RandomAccessDataSource & file, UInt64 offset)
{
    try
    {
        UInt64 skipped = 0;
        file.seek(offset);
        return KLV::Reader(file).nextKLV(skipped, 0);
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

/// Counts edit units: each begins with a packet that has the key of the first.
class UnitNotes : public PacketListener
{
public:
    explicit UnitNotes(Warnings & warnings) : warnings_(warnings) {}

    void value(KLV::Packet &) override {}

    void packet(KLV::Packet const & packet, UInt64 bytesThere) override
    {
        if (!isOfEssence(packet.key()))
            return;
        if (!firstKey)
            firstKey = packet.key();
        if (packet.key() == *firstKey)
            beginUnit();
        isCut = bytesThere < packet.length();
        elements_ += !isCut && !isOfSystemItem(packet.key());
        if (isCut)
            warnings_.add(cutFault(packet, bytesThere));
    }

    void gap(UInt64 offset, UInt64 size, bool) override
    {
        beginsWithGap = beginsWithGap || !firstKey;
        warnings_.add(gapFault(offset, size));
    }

    /// The walk ends where another edit unit would begin.
    void endUnit()
    {
        if (units == 1)
            elementsOfFirst_ = elements_;
    }

    /// How many edit units are whole. Where the stream is cut or `endsOpen`,
    /// the last is if it has the elements of one, `elementsOfOne`: what a
    /// writer adds to it may be cut.
    UInt64 wholeUnits(bool endsOpen, UInt64 elementsOfOne) const
    {
        bool const mayLack = isCut || endsOpen;
        bool const lacksElements = mayLack && elements_ < std::max<UInt64>(elementsOfOne, 1);
        return units - (units != 0 && lacksElements);
    }

    /// Those of the first edit unit; of an element for each track while it
    /// isn't known to be whole.
    UInt64 elementsOfOne(UInt64 tracks) const { return elementsOfFirst_.value_or(tracks); }

    std::optional<KLV::Key> firstKey;
    bool beginsWithGap = false;
    UInt64 units = 0;
    bool isCut = false;

private:
    void beginUnit()
    {
        endUnit();
        ++units;
        elements_ = 0;
    }

    UInt64 elements_ = 0; // of the last one, those that are whole
    std::optional<UInt64> elementsOfFirst_;
    Warnings & warnings_;
};

/// Walks through the packets of a stream.
class StreamWalk
{
public:
    StreamWalk(DataIO::RandomAccessDataSource & file, EssenceStream const & stream) : file_(file), stream_(stream) {}

    /// From one place in the stream up to another, or up to its end.
    void operator()(UInt64 from, UInt64 to, PacketListener & listener)
    {
        for (EssenceStream::Stretch const & stretch : stream_.stretches())
        {
            if (stretch.streamEnd() <= from || stretch.streamStart >= to)
                continue;
            UInt64 const start = std::max(from, stretch.streamStart);
            file_.seek(stretch.fileStart + (start - stretch.streamStart));
            FileRegion region(file_, std::min(to, stretch.streamEnd()) - start);
            walkPackets(region, listener);
        }
    }

private:
    DataIO::RandomAccessDataSource & file_;
    EssenceStream const & stream_;
};

class FrameCount
{
public:
    FrameCount(DataIO::RandomAccessDataSource & file, EssenceStream const & stream, StreamIndex const & index,
               UInt64 tracks, Warnings & warnings) :
        walk_(file, stream), stream_(stream), index_(index), tracks_(tracks), warnings_(warnings)
    {
    }

    UInt64 count()
    {
        UInt64 const known = unitsByIndex();
        if (known == 0)
            return countFrom(0);

        Warnings ignored;
        UnitNotes first(ignored);
        walk_(startOf(0), startOf(1), first);
        if (startOf(1) < stream_.end())
            first.endUnit();
        Warnings ofLast;
        UnitNotes last(ofLast);
        walk_(startOf(known - 1), stream_.end(), last);
        if (isAstray(first, last, startOf(known - 1)))
        {
            warnings_.add(
                fmt::format("the index of body SID {} leads to places where no edit units begin", stream_.bodySID()));
            return countFrom(0);
        }
        warnings_.add(ofLast.all());
        return known - 1 + last.wholeUnits(stream_.endsOpen(), first.elementsOfOne(tracks_));
    }

private:
    UInt64 countFrom(UInt64 start)
    {
        UnitNotes all(warnings_);
        walk_(start, stream_.end(), all);
        return all.wholeUnits(stream_.endsOpen(), all.elementsOfOne(tracks_));
    }

    /// Whether the walk for the last edit unit hasn't begun with one, though
    /// the stream doesn't end there.
    bool isAstray(UnitNotes const & first, UnitNotes const & last, UInt64 start) const
    {
        if (last.firstKey && last.firstKey != first.firstKey)
            return true;
        return last.beginsWithGap && stream_.end() - start > LONGEST_KEY_AND_LENGTH;
    }

    /// How many edit units of the index begin in the stream.
    UInt64 unitsByIndex() const
    {
        UInt64 const end = stream_.end();
        if (UInt64 const size = index_.editUnitByteCount())
            return std::min(end / size + (end % size != 0), index_.editUnits().value_or(end));
        auto const & offsets = index_.offsets();
        auto const behind =
            std::find_if(offsets.begin(), offsets.end(), [end](UInt64 offset) { return offset >= end; });
        return static_cast<UInt64>(behind - offsets.begin());
    }

    UInt64 startOf(UInt64 unit) const
    {
        if (UInt64 const size = index_.editUnitByteCount())
            return unit * size;
        return unit < index_.offsets().size() ? index_.offsets()[unit] : stream_.end();
    }

    StreamWalk walk_;
    EssenceStream const & stream_;
    StreamIndex const & index_;
    UInt64 const tracks_;
    Warnings & warnings_;
};

}

std::optional<FirstPacket> FirstPacket::find(DataIO::RandomAccessDataSource & file, EssenceStream const & stream)
{
    if (stream.stretches().empty())
        return std::nullopt;

    EssenceStream::Stretch const & stretch = stream.stretches().front();
    UInt64 const end = stretch.fileStart + stretch.size;
    Templates::auto_ptr<KLV::Packet> packet = packetAt(file, stretch.fileStart);
    while (packet && !isOfEssence(packet->key()) && endOf(*packet) < end)
        packet = packetAt(file, endOf(*packet));
    if (!packet || !isOfEssence(packet->key()) || file.absoluteOffset() > end)
        return std::nullopt;

    FirstPacket first{packet->key(), file.absoluteOffset() - stretch.fileStart, packet->length(), 0, false};
    first.valueThere = std::min(packet->length(), end - file.absoluteOffset());
    UInt64 const behind = endOf(*packet);
    Templates::auto_ptr<KLV::Packet> const next =
        behind < end ? packetAt(file, behind) : Templates::auto_ptr<KLV::Packet>();
    bool const onlyFill = next && KLV::isFillItem(next->key()) && endOf(*next) >= end;
    first.isAlone = stream.size() == stretch.size && (behind >= end || onlyFill);
    return first;
}

std::optional<UInt64> countInClip(FirstPacket const & clip, StreamIndex const & index)
{
    if (index.editUnitByteCount() != 0)
        return clip.valueThere / index.editUnitByteCount();

    std::vector<UInt64> const & offsets = index.offsets();
    if (offsets.empty())
        return std::nullopt;

    // Some writers count from the key, others from the value.
    UInt64 const base = offsets.front() == clip.valueStart ? clip.valueStart : 0;
    UInt64 units = 0;
    while (units + 1 < offsets.size() && offsets[units + 1] - base <= clip.valueThere)
        ++units;
    bool const lastIsWhole =
        units + 1 == offsets.size() && !index.endsWithMark() && clip.valueThere == clip.valueLength;
    return units + lastIsWhole;
}

UInt64 countInFrames(DataIO::RandomAccessDataSource & file, EssenceStream const & stream, StreamIndex const & index,
                     UInt64 tracks, Warnings & warnings)
{
    return FrameCount(file, stream, index, tracks, warnings).count();
}

}}
