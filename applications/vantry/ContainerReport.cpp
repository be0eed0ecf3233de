#include "ContainerReport.h"

#include "EssenceStream.h"
#include "FileLayout.h"
#include "MXFIO/EssenceUtils.h"
#include "MXFIO/Partition.h"
#include "Packs/PartitionPack.h"
#include "UntiedStream.h"
#include "Warnings.h"

#include <fmt/format.h>
#include <set>

namespace Vantry { namespace Application {

namespace {

using Json = ContainerReport::Json;

template <class Value>
Json orNull(std::optional<Value> const & value)
{
    return value ? Json(*value) : Json();
}

char const * textOf(Wrapping wrapping)
{
    switch (wrapping)
    {
    case Wrapping::FRAME:
        return "frame";
    case Wrapping::CLIP:
        return "clip";
    default:
        return "other";
    }
}

/// As the label says, or else as the stream looks.
Wrapping wrappingOf(ContainerClaim const & claim, EssenceStream const & stream, StreamIndex const & index,
                    std::optional<FirstPacket> const & first)
{
    if (claim.wrapping)
        return *claim.wrapping;
    if (stream.isGeneric() || !first)
        return Wrapping::OTHER;
    bool const isOneUnit = index.editUnitByteCount() > first->valueLength;
    return first->isAlone && !isOneUnit ? Wrapping::CLIP : Wrapping::FRAME;
}

/// Edit units of an index as those of the tracks.
UInt64 asClaimed(UInt64 units, StreamIndex const & index, ContainerClaim const & claim)
{
    bool const areTold = index.editRate() && claim.editRate;
    return areTold && index.editRate()->goesWith(*claim.editRate) ? index.editRate()->convert(units, *claim.editRate)
                                                                  : units;
}

/// Whether the first packet holds many edit units, whatever labels say.
bool isClip(Wrapping wrapping, FirstPacket const & first, StreamIndex const & index)
{
    return wrapping == Wrapping::CLIP ||
           (first.isAlone && index.editUnitByteCount() != 0 && first.valueLength / 2 >= index.editUnitByteCount());
}

}

ContainerReport::ContainerReport(FileLayout const & layout, StreamIndexes const & indexes, MetadataTree const & tree,
                                 Warnings & warnings) :
    layout_(layout), indexes_(indexes), tree_(tree), warnings_(warnings)
{
}

Json ContainerReport::containers() const
{
    std::map<unsigned int, ContainerClaim> claims = readClaims(tree_);
    if (claims.empty())
        claimAnyStream(claims);
    for (MXFIO::Partition const * partition : layout_.partitions())
    {
        Packs::PartitionPack const & pack = partition->partitionPack();
        bool const isNew = pack.bodySID() != 0 && claims.emplace(pack.bodySID(), ContainerClaim()).second;
        if (isNew && !pack.isGenericStreamsPartition())
            warnings_.add(fmt::format("the metadata don't tell of body SID {}", pack.bodySID()));
    }
    for (auto const & [bodySID, index] : indexes_)
        if (claims.count(bodySID) == 0)
            warnings_.add(fmt::format("there is an index of body SID {}, and no essence", bodySID));

    Json all = Json::array();
    for (auto const & [bodySID, claim] : claims)
        all.push_back(container(bodySID, claim));
    return all;
}

void ContainerReport::claimAnyStream(std::map<unsigned int, ContainerClaim> & claims) const
{
    std::optional<ContainerClaim> const claim = readOnlyClaim(tree_);
    if (!claim)
        return;

    std::vector<StreamStart> streams;
    std::set<unsigned int> known = {0};
    Warnings ofStreams; // they come again
    for (MXFIO::Partition const * partition : layout_.partitions())
    {
        unsigned int const bodySID = partition->partitionPack().bodySID();
        if (partition->partitionPack().isGenericStreamsPartition() || !known.insert(bodySID).second)
            continue;
        EssenceStream const stream(layout_, bodySID, ofStreams);
        if (std::optional<FirstPacket> const first = FirstPacket::find(layout_.file(), stream))
            streams.push_back({bodySID, MXFIO::key2TrackNumber(first->key)});
    }
    if (streams.empty())
        return;
    StreamChoice const choice = chooseStream(streams, claim->trackNumbers);
    warnings_.add(choice.text());
    claims.emplace(choice.bodySID, *claim);
}

Json ContainerReport::container(unsigned int bodySID, ContainerClaim const & claim) const
{
    auto const known = indexes_.find(bodySID);
    StreamIndex const index = known != indexes_.end() ? known->second : StreamIndex();
    EssenceStream const stream(layout_, bodySID, warnings_);
    std::optional<FirstPacket> const first = FirstPacket::find(layout_.file(), stream);
    Wrapping wrapping = wrappingOf(claim, stream, index, first);
    if (wrapping == Wrapping::FRAME && first && isClip(wrapping, *first, index))
    {
        wrapping = Wrapping::CLIP;
        warnings_.add(
            fmt::format("the label of body SID {} says that frames are wrapped, and it is one clip", bodySID));
    }
    std::optional<EditRate> const rate = claim.editRate ? claim.editRate : index.editRate();
    std::optional<UInt64> const readable = count(stream, index, claim, wrapping, first);
    if (!stream.isGeneric())
        findFaults(bodySID, claim, index, readable);

    return {
        {"body_sid", bodySID},
        {"index_sid", claim.indexSID != 0 ? claim.indexSID : index.indexSID()},
        {"wrapping", textOf(wrapping)},
        {"edit_rate", rate ? Json(rate->text()) : Json()},
        {"duration", orNull(claim.duration)},
        {"readable_edit_units", orNull(readable)},
        {"size", stream.size()},
        {"index", {{"kind", index.kind()}, {"segments", index.segments()}, {"edit_units", orNull(index.editUnits())}}}};
}

std::optional<UInt64> ContainerReport::count(EssenceStream const & stream, StreamIndex const & index,
                                             ContainerClaim const & claim, Wrapping wrapping,
                                             std::optional<FirstPacket> const & first) const
{
    if (stream.isGeneric())
        return std::nullopt;
    if (!first)
        return 0;
    if (isClip(wrapping, *first, index))
        return countClip(*first, index, claim, stream.bodySID());

    bool const hasIndex = index.kind() != "none";
    bool const isOfSamples = claim.editRate && claim.editRate->isOfSamples();
    if (!hasIndex && (wrapping == Wrapping::OTHER || isOfSamples))
        return std::nullopt;

    UInt64 const units = countInFrames(layout_.file(), stream, index, claim.trackNumbers.size(), warnings_);
    return hasIndex ? asClaimed(units, index, claim) : units;
}

std::optional<UInt64> ContainerReport::countClip(FirstPacket const & clip, StreamIndex const & index,
                                                 ContainerClaim const & claim, unsigned int bodySID) const
{
    bool const isWhole = clip.valueThere == clip.valueLength;
    if (!isWhole)
        warnings_.add(fmt::format("the clip of body SID {} is cut: {} of {} bytes are there", bodySID, clip.valueThere,
                                  clip.valueLength));
    if (clip.valueThere == 0)
        return 0;

    // A document is for all edit units or none; an index has one entry.
    if (claim.isData)
        return isWhole ? claim.duration : 0;

    std::optional<UInt64> const units = countInClip(clip, index);
    if (units)
        return asClaimed(*units, index, claim);
    if (claim.blockAlign != 0 && claim.samplingRate && claim.editRate)
        return claim.samplingRate->convert(clip.valueThere / claim.blockAlign, *claim.editRate);
    return units;
}

void ContainerReport::findFaults(unsigned int bodySID, ContainerClaim const & claim, StreamIndex const & index,
                                 std::optional<UInt64> readable) const
{
    if (!claim.duration)
        return;

    if (readable && *readable < *claim.duration)
        warnings_.add(fmt::format("the essence of body SID {} ends after {} of {} edit units", bodySID, *readable,
                                  *claim.duration));
    if (claim.isData || index.kind() == "none" || !index.editUnits() || !index.editRate() || !claim.editRate)
        return;
    UInt64 const indexed = asClaimed(*index.editUnits(), index, claim);
    if (indexed < *claim.duration)
        warnings_.add(
            fmt::format("the index of body SID {} covers {} of {} edit units", bodySID, indexed, *claim.duration));
}

}}
