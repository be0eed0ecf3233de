#include "ContainerSurvey.h"

#include "DataIO/RandomAccessDataSource.h"
#include "EditRate.h"
#include "Exceptions/BaseException.h"
#include "Exceptions/IOError.h"
#include "KLV/KeyPredicates.h"
#include "KLV/Packet.h"
#include "KLV/Reader.h"
#include "MXFIO/EssenceUtils.h"
#include "MXFIO/Partition.h"
#include "MXFIO/Reader2.h"
#include "Packs/PartitionPack.h"
#include "UntiedStream.h"

#include <algorithm>
#include <set>

namespace Vantry { namespace Application {

using GenericContainer::RP224UniversalLabels;

namespace {

UInt64 const SEARCH_LIMIT = 65536;

/// Asks a question that a damaged file answers with an exception, which is no
/// answer then.
template <class Question>
auto ask(Question const & question) -> decltype(question())
{
    try
    {
        return question();
    }
    catch (Exceptions::IOError const &)
    {
        throw;
    }
    catch (Exceptions::BaseException const &)
    {
        return {};
    }
}

bool holds(MXFIO::Partition & partition, EssenceContainer const & container)
{
    unsigned const bodySID = partition.partitionPack().bodySID();
    return bodySID != 0 && bodySID == container.bodySID;
}

MXFIO::Partition * nextOf(MXFIO::Reader2 & reader, MXFIO::Partition * partition, EssenceContainer const & container)
{
    do
        partition = partition != nullptr ? reader.nextPartition(partition) : reader.headerPartition();
    while (partition != nullptr && !holds(*partition, container));
    return partition;
}

/// Goes through the essence elements of a container from its start on.
class ElementSearch
{
public:
    ElementSearch(MXFIO::Reader2 & reader, EssenceContainer const & container) :
        reader_(reader), container_(container), partition_(nullptr), isAtStart_(true)
    {
    }

    /// The next element, or null.
    Templates::auto_ptr<KLV::Packet> next()
    {
        if (isAtStart_)
            advance();
        while (partition_ != nullptr)
        {
            Templates::auto_ptr<KLV::Packet> packet = partition_->nextBodyKLV(SEARCH_LIMIT);
            if (packet.get() == nullptr)
                advance();
            else if (isEssenceElement(packet->key()))
                return packet;
        }
        return Templates::auto_ptr<KLV::Packet>();
    }

private:
    void advance()
    {
        partition_ = nextOf(reader_, partition_, container_);
        isAtStart_ = false;
        if (partition_ != nullptr)
            partition_->rewind();
    }

    MXFIO::Reader2 & reader_;
    EssenceContainer const & container_;
    MXFIO::Partition * partition_;
    bool isAtStart_;
};

EditRate editRateOf(Templates::Rational<Int64> const & rate)
{
    return {static_cast<UInt32>(rate.numerator()), static_cast<UInt32>(rate.denominator())};
}

/// Whether the only element of a container may be its first of many, as the
/// file is cut in it or behind it. Tracks that count samples mostly are clips.
bool mayBeFrame(MXFIO::Reader2 & reader, EssenceContainer const & container, bool isCut)
{
    bool const isLikely = container.wrapping == RP224UniversalLabels::FRAME || container.tracks.size() > 1;
    if (isCut)
        return isLikely;
    Templates::Rational<Int64> const & rate = container.tracks.front().editRate;
    bool const isOfSamples = rate > 0 && editRateOf(rate).isOfSamples();
    if (isOfSamples || !isLikely)
        return false;
    return ask([&] { return reader.footerPartition(); }) == nullptr;
}

/// Labels are often wrong, so what follows the first element decides. Where
/// nothing can follow, because the file is cut, the label does, or whether it
/// is too much sound for an edit unit.
bool isClip(MXFIO::Reader2 & reader, EssenceContainer const & container, UInt64 length, bool isCut, bool isAlone)
{
    EssenceTrack const & track = container.tracks.front();
    if (container.wrapping == RP224UniversalLabels::CLIP || !isAlone || track.duration == Int64(1))
        return container.wrapping == RP224UniversalLabels::CLIP;
    if (!mayBeFrame(reader, container, isCut))
        return true;

    Int64 const second = Int64(track.sound.samplesPerSecond) * track.sound.frameSize();
    return container.tracks.size() == 1 && second != 0 && length >= UInt64(second);
}

void lookAtElements(MXFIO::Reader2 & reader, EssenceContainer const & container, ContainerSurvey & survey)
{
    ElementSearch search(reader, container);
    UInt64 length = 0;
    bool isCut = false;
    {
        Templates::auto_ptr<KLV::Packet> const first = search.next();
        if (first.get() == nullptr)
            return;
        survey.firstKey = first->key();
        length = first->length();
        isCut = length > reader.source().remaining();
        survey.isClipWrapped = container.wrapping == RP224UniversalLabels::CLIP;
    }
    bool const isAlone = ask([&] { return search.next().get() == nullptr ? 1 : 2; }) != 2;
    survey.isClipWrapped = isClip(reader, container, length, isCut, isAlone);
}

Templates::Rational<Int64> lowestRate(EssenceContainer const & container)
{
    Templates::Rational<Int64> lowest;
    for (EssenceTrack const & track : container.tracks)
        if (track.editRate > 0 && (lowest == 0 || track.editRate < lowest))
            lowest = track.editRate;
    return lowest;
}

/// That of the index, unless it can't be.
Templates::Rational<Int64> rateOf(EditUnitIndex const & index, EssenceContainer const & container)
{
    Templates::Rational<Int64> const lowest = lowestRate(container);
    Templates::Rational<Int64> const rate = index.editRate().value_or(lowest);
    return lowest == 0 || editRateOf(rate).goesWith(editRateOf(lowest)) ? rate : lowest;
}

/// The duration of a track in edit units of its container.
std::optional<Int64> durationIn(Templates::Rational<Int64> const & rate, EssenceTrack const & track)
{
    if (!track.duration || track.editRate == 0)
        return std::nullopt;
    if (track.editRate == rate)
        return track.duration;
    return ask(
        [&]
        {
            Templates::Rational<Int64> const scaled =
                Templates::Rational<Int64>(*track.duration) * rate / track.editRate;
            return std::optional<Int64>(scaled.numerator() / scaled.denominator());
        });
}

/// What all tracks have.
std::optional<Int64> claimedDuration(EssenceContainer const & container, ContainerSurvey const & survey)
{
    // Tracks that count samples don't tell how many elements there are.
    if (!survey.isClipWrapped && survey.editRate > 0 && editRateOf(survey.editRate).isOfSamples())
        return std::nullopt;

    std::optional<Int64> shortest;
    for (EssenceTrack const & track : container.tracks)
        if (std::optional<Int64> const duration = durationIn(survey.editRate, track))
            shortest = std::min(shortest.value_or(*duration), *duration);
    return shortest;
}

Templates::auto_ptr<KLV::Packet> firstElementOf(MXFIO::Partition & partition)
{
    partition.rewind();
    Templates::auto_ptr<KLV::Packet> packet;
    do
        packet = partition.nextBodyKLV(SEARCH_LIMIT);
    while (packet.get() != nullptr && !isEssenceElement(packet->key()));
    return packet;
}

/// The streams that have essence, as far as the file can be read.
std::vector<StreamStart> streamsIn(MXFIO::Reader2 & reader)
{
    std::vector<StreamStart> streams;
    std::set<unsigned> found = {0};
    ask(
        [&]
        {
            for (auto * partition = reader.headerPartition(); partition != nullptr;
                 partition = reader.nextPartition(partition))
            {
                Packs::PartitionPack const & pack = partition->partitionPack();
                if (pack.isGenericStreamsPartition() || found.count(pack.bodySID()) != 0)
                    continue;
                Templates::auto_ptr<KLV::Packet> const first = firstElementOf(*partition);
                if (first.get() != nullptr)
                    streams.push_back({*found.insert(pack.bodySID()).first, MXFIO::key2TrackNumber(first->key())});
            }
            return true;
        });
    return streams;
}

/// Whether the first element of an edit unit begins there.
bool beginsEditUnit(MXFIO::Reader2 & reader, UInt64 position, KLV::Key const & firstKey)
{
    return ask(
        [&]
        {
            reader.source().seek(position);
            UInt64 skipped = 0;
            return KLV::Reader(reader.source()).nextKLV(skipped, 0)->key() == firstKey;
        });
}

std::optional<UInt64> positionOf(MXFIO::Reader2 & reader, EssenceContainer const & container, UInt64 bodyOffset)
{
    MXFIO::Partition * holder = nullptr;
    for (MXFIO::Partition * partition = nullptr; (partition = nextOf(reader, partition, container)) != nullptr;)
    {
        if (partition->partitionPack().bodyOffset() > bodyOffset)
            break;
        holder = partition;
    }
    if (holder == nullptr)
        return std::nullopt;
    return holder->bodyAbsoluteOffset() + (bodyOffset - holder->partitionPack().bodyOffset());
}

}

bool isEssenceElement(KLV::Key const & key)
{
    // A label of the essence register (SMPTE 336M), as fill items are not.
    bool const isRegistered = key[4] == 1 && key[5] == 2 && key[6] == 1;
    return isRegistered || KLV::isEssence(key);
}

void findStream(MXFIO::Reader2 & reader, EssenceContainer & container)
{
    if (container.bodySID != 0)
        return;
    std::vector<StreamStart> const streams = streamsIn(reader);
    if (streams.empty())
        return;

    std::vector<unsigned> trackNumbers;
    for (EssenceTrack const & track : container.tracks)
        trackNumbers.push_back(track.trackNumber);
    StreamChoice const choice = chooseStream(streams, trackNumbers);
    container.bodySID = choice.bodySID;
    if (choice.isGuess)
        container.doubt = choice.text();
}

ContainerSurvey surveyContainer(MXFIO::Reader2 & reader, EssenceContainer const & container)
{
    ContainerSurvey survey;
    ask(
        [&]
        {
            lookAtElements(reader, container, survey);
            return true;
        });
    survey.index = std::make_unique<EditUnitIndex>(reader, container.bodySID, container.indexSID);
    survey.editRate = rateOf(*survey.index, container);
    survey.duration = claimedDuration(container, survey);
    return survey;
}

std::optional<UInt64> positionByIndex(MXFIO::Reader2 & reader, EssenceContainer const & container,
                                      ContainerSurvey const & survey, Int64 editUnit)
{
    std::optional<UInt64> const offset = survey.index->offset(editUnit);
    if (!offset || !survey.firstKey)
        return std::nullopt;

    std::optional<UInt64> const position = ask([&] { return positionOf(reader, container, *offset); });
    if (!position || !beginsEditUnit(reader, *position, *survey.firstKey))
        return std::nullopt;
    return position;
}

}}
