#include "UnwrapCommand.h"

#include "BlockSource.h"
#include "CommonOptions.h"
#include "Exceptions/BaseException.h"
#include "Exceptions/IOError.h"
#include "Failure.h"
#include "FileDictionary.h"
#include "HeaderMetadata.h"
#include "Input.h"
#include "Interruption.h"
#include "KLV/Reader.h"
#include "MXFIO/Partition.h"
#include "MXFIO/Reader2.h"
#include "Options.h"
#include "Output.h"
#include "OutputFolder.h"
#include "Packs/PartitionPack.h"
#include "Progress.h"
#include "SchemaInUse.h"
#include "UnwrapWalk.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>

namespace Vantry { namespace Application {

namespace fs = std::filesystem;

namespace {

UInt64 const SEARCH_LIMIT = 65536;

// The reader is for what lies outside of metadata.
Templates::SharedPtr<MetaMetadata::Dictionary> const NO_DICTIONARY;

std::vector<EssenceContainer> containersOf(MXFIO::Reader2 & reader, MXFIO::Partition const * partition,
                                           Schema::Tables const & tables)
{
    if (partition == nullptr)
        return {};
    UInt64 const size = partition->partitionPack().headerByteCount();
    reader.source().seek(partition->metadataAbsoluteOffset());
    auto const dictionary = dictionaryFor(reader.source(), size, tables);
    return essenceContainers(*readHeaderMetadata(reader.source(), size, dictionary).metadata);
}

bool hasEssence(std::vector<EssenceContainer> const & containers)
{
    return std::any_of(containers.begin(), containers.end(), [](auto const & one) { return !one.tracks.empty(); });
}

/// The last metadata that there are; null when the file is too damaged to say.
MXFIO::Partition const * partitionWithLastMetadata(MXFIO::Reader2 & reader)
{
    try
    {
        return reader.backwardFirstPartitionWithFinalMetadata();
    }
    catch (Exceptions::IOError const &)
    {
        throw;
    }
    catch (Exceptions::BaseException const &)
    {
        return nullptr;
    }
}

/// A header that is closed and complete has the final metadata.
std::vector<EssenceContainer> readContainers(MXFIO::Reader2 & reader, Schema::Tables const & tables,
                                             std::string const & file)
{
    MXFIO::Partition const * const first = reader.headerPartition();
    if (first == nullptr)
        throw Failure(ExitStatus::FAILED, file, "there is no partition at its start");

    Packs::PartitionPack const & pack = first->partitionPack();
    std::vector<EssenceContainer> containers;
    if (pack.isOpen() || !pack.isComplete())
        containers = containersOf(reader, partitionWithLastMetadata(reader), tables);
    if (!hasEssence(containers))
        containers = containersOf(reader, first, tables);
    for (EssenceContainer & container : containers)
        findStream(reader, container);
    if (!hasEssence(containers))
        throw Failure(ExitStatus::FAILED, file, "its metadata lead to no essence");
    return containers;
}

std::string summaryOf(std::string const & fault, std::optional<UInt64> missing)
{
    if (!missing)
        return fault + "; how many edit units are missing can't be told";
    return fmt::format("{}; {} edit unit{} missing", fault, *missing, *missing == 1 ? " is" : "s are");
}

nlohmann::ordered_json jsonOf(UnwrappedTrack const & track, bool isCounted)
{
    nlohmann::ordered_json json;
    json["track"] = track.track().id;
    json["kind"] = track.track().kind;
    json["file"] = track.output().name();
    json["edit_units"] = nullptr;
    if (isCounted)
        json["edit_units"] = track.editUnits();
    json["bytes"] = track.output().size();
    return json;
}

std::string lineOf(UnwrappedTrack const & track, bool isCounted)
{
    std::string const editUnits = isCounted ? std::to_string(track.editUnits()) : "?";
    return fmt::format("{}  {}, {} edit unit{}, {} bytes\n", track.output().name(), track.track().kind, editUnits,
                       editUnits == "1" ? "" : "s", track.output().size());
}

}

char const * UnwrapCommand::summary() const
{
    return "Write the essence of each track to a file of its own";
}

char const * UnwrapCommand::example() const
{
    return "vantry unwrap a.mxf -o essence --track 2 --from 100 --count 25";
}

char const * UnwrapCommand::jsonForm() const
{
    return "Give the list of what was written as JSON on standard output";
}

void UnwrapCommand::declareOptions(Options & options)
{
    options.file(file_, "The file to take apart");
    options.requiredText("-o,--output", folder_, "DIR",
                         "The folder to write to; - writes one track to standard output");
    options.numbers("--track", trackIDs_, "ID", "Take this track, as the material package numbers it; repeatable");
    options.number("--from", from_, "N", "Begin with edit unit N of the container, counted from 0 as stored");
    options.number("--count", count_, "N", "Take N edit units");
    options.flag("--force", force_, "Replace files that are there already");
}

void UnwrapCommand::run(CommonOptions const & common, Output & output)
{
    checkUsage(common);
    SchemaInUse const schema(common.dictionary);
    std::unique_ptr<DataIO::RandomAccessDataSource> const file = openRandomAccess(file_);
    MXFIO::Reader2 reader(*file, NO_DICTIONARY, SEARCH_LIMIT);
    reader.loadRIP(); // partitions are looked for without it too
    std::vector<EssenceContainer> const containers = readContainers(reader, schema.tables(), file_);
    checkTracks(containers);

    Interruption const interruption;
    std::optional<OutputFolder> folder;
    if (!toStandardOutput())
        folder.emplace(folder_);
    Job const job = prepare(reader, containers);
    std::string fault = walk(job, common.quiet);
    for (EssenceContainer const & container : containers)
        if (fault.empty())
            fault = container.doubt;
    deliver(job, fault);
    if (!toStandardOutput())
        report(job, common.json, output);
    if (!fault.empty())
        throw Failure(ExitStatus::DAMAGED_INPUT, file_, fault);
}

void UnwrapCommand::wrongUsage(std::string const & problem) const
{
    throw Failure(ExitStatus::WRONG_USAGE, file_, problem);
}

void UnwrapCommand::checkUsage(CommonOptions const & common) const
{
    if (toStandardOutput() && common.json)
        wrongUsage("--json and the essence can't both go to standard output");
    if (count_ == UInt64(0))
        wrongUsage("--count 0 leaves nothing to take");
}

bool UnwrapCommand::isWanted(EssenceTrack const & track) const
{
    return trackIDs_.empty() || std::find(trackIDs_.begin(), trackIDs_.end(), track.id) != trackIDs_.end();
}

void UnwrapCommand::checkTracks(std::vector<EssenceContainer> const & containers) const
{
    std::vector<unsigned> ids;
    bool haveFolder = false;
    for (EssenceContainer const & container : containers)
        for (EssenceTrack const & track : container.tracks)
            if (isWanted(track))
            {
                ids.push_back(track.id);
                haveFolder = haveFolder || track.form == EssenceForm::JPEG_2000;
            }

    for (unsigned id : trackIDs_)
        if (std::find(ids.begin(), ids.end(), id) == ids.end())
            wrongUsage(fmt::format("no essence track has the ID {}", id));
    if (toStandardOutput() && ids.size() != 1)
        wrongUsage(fmt::format("standard output takes one track, these are {}: choose with --track", ids.size()));
    if (toStandardOutput() && haveFolder)
        wrongUsage("pictures that are a file each can't go to standard output");
}

EditUnitRange UnwrapCommand::range() const
{
    UInt64 const MOST = std::numeric_limits<Int64>::max();
    UInt64 const begin = std::min(from_.value_or(0), MOST);
    return {Int64(begin), Int64(begin + std::min(count_.value_or(MOST), MOST - begin))};
}

UnwrapCommand::Job UnwrapCommand::prepare(MXFIO::Reader2 & reader,
                                          std::vector<EssenceContainer> const & containers) const
{
    Job job;
    std::vector<std::string> names;
    for (EssenceContainer const & container : containers)
    {
        ContainerUnwrap::Tracks tracks = makeTracks(container, names);
        if (!tracks.empty())
            add(job, reader, container, std::move(tracks));
    }
    return job;
}

ContainerUnwrap::Tracks UnwrapCommand::makeTracks(EssenceContainer const & container,
                                                  std::vector<std::string> & names) const
{
    ContainerUnwrap::Tracks tracks;
    for (EssenceTrack const & track : container.tracks)
        if (isWanted(track))
            tracks.push_back(std::make_unique<UnwrappedTrack>(track, makeTrackOutput(track, names)));
    return tracks;
}

std::unique_ptr<EssenceOutput> UnwrapCommand::makeTrackOutput(EssenceTrack const & track,
                                                              std::vector<std::string> & names) const
{
    if (toStandardOutput())
        return makeStandardOutput(track);

    // Where a track of the material package plays several, they are told
    // apart.
    std::string const stem = fmt::format("{}_{}", fs::path(file_).stem().string(), track.id);
    std::string name = stem;
    for (int i = 2; std::find(names.begin(), names.end(), name) != names.end(); ++i)
        name = fmt::format("{}_{}", stem, i);
    names.push_back(name);
    return makeOutput(track, fs::path(folder_) / (name + extensionOf(track.form)), force_, from_.value_or(0));
}

void UnwrapCommand::add(Job & job, MXFIO::Reader2 & reader, EssenceContainer const & container,
                        ContainerUnwrap::Tracks tracks) const
{
    ContainerSurvey survey = surveyContainer(reader, container);
    Int64 const from = range().begin;
    if (from > 0 && survey.duration && from >= *survey.duration)
        wrongUsage(fmt::format("there are only {} edit units", *survey.duration));

    std::optional<UInt64> position;
    if (survey.isClipWrapped)
        job.containers.push_back(
            std::make_unique<ClipUnwrap>(container, std::move(survey), range(), std::move(tracks)));
    else
    {
        if (from > 0)
            position = positionByIndex(reader, container, survey, from);
        job.containers.push_back(std::make_unique<FrameUnwrap>(container, survey, range(), std::move(tracks),
                                                               position.value_or(0), position ? from : 0));
    }

    // The walk begins with the container that begins first.
    bool const isFirst = job.containers.size() == 1;
    if (isFirst || position.value_or(0) < job.start)
    {
        job.start = position.value_or(0);
        job.startsIn = position ? job.containers.back().get() : nullptr;
    }
}

std::string UnwrapCommand::walk(Job const & job, bool quiet) const
{
    BlockSource source(file_);
    Progress progress(source.remaining(), quiet);
    auto const flush = [&]
    {
        if (Interruption::isWanted())
            throw Failure(ExitStatus::FAILED, file_, "interrupted");
        for (auto const & container : job.containers)
            for (auto const & track : container->tracks())
                track->output().flush();
        progress.show(source.absoluteOffset());
    };
    source.beforeBlockGoes(flush);

    UnwrapWalk walk(source, job.containers);
    walk.run(job.start, job.startsIn);
    flush();
    return faultOf(job, walk.fault());
}

std::string UnwrapCommand::faultOf(Job const & job, std::string const & fault) const
{
    for (auto const & container : job.containers)
        for (auto const & track : container->tracks())
            if (fault.empty() && !track->output().fault().empty())
                return faultOf(job, track->output().fault());

    std::optional<UInt64> missing = 0;
    for (auto const & container : job.containers)
    {
        std::optional<UInt64> const here = container->missing(!fault.empty());
        missing = here && missing ? std::optional<UInt64>(std::max(*missing, *here)) : std::nullopt;
    }

    if (!fault.empty())
        return summaryOf(fault, missing);
    return missing.value_or(0) != 0 ? summaryOf("the essence is shorter than the metadata claim", missing) : "";
}

void UnwrapCommand::deliver(Job const & job, std::string const & fault) const
{
    bool const isEmpty = std::all_of(job.containers.begin(), job.containers.end(),
                                     [](auto const & container)
                                     {
                                         return std::all_of(container->tracks().begin(), container->tracks().end(),
                                                            [&](auto const & track) { return track->isEmpty(); });
                                     });
    if (isEmpty && !fault.empty())
        throw Failure(ExitStatus::FAILED, file_, fault);
    if (isEmpty && from_.value_or(0) > 0)
        wrongUsage(fmt::format("there is no edit unit {}, or nothing tells where it begins", *from_));

    for (auto const & container : job.containers)
        for (auto const & track : container->tracks())
            track->output().complete();
    for (auto const & container : job.containers)
        for (auto const & track : container->tracks())
            track->output().publish();
}

void UnwrapCommand::report(Job const & job, bool asJson, Output & output) const
{
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (auto const & container : job.containers)
    {
        for (auto const & track : container->tracks())
            if (asJson)
                list.push_back(jsonOf(*track, container->isCounted()));
            else
                output.buffer().append(lineOf(*track, container->isCounted()));
        if (container->strayNumber() && !asJson)
            output.buffer().append(fmt::format("  elements of no track were left there, the first numbered 0x{:08x}\n",
                                               *container->strayNumber()));
    }
    if (asJson)
        output.buffer().append(list.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n");
}

}}
