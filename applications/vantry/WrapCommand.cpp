#include "WrapCommand.h"

#include "CommonOptions.h"
#include "D10Inputs.h"
#include "Exceptions/InvalidValue.h"
#include "Failure.h"
#include "Interruption.h"
#include "Options.h"
#include "Output.h"
#include "OutputFolder.h"
#include "Platform/Text.h"
#include "Progress.h"
#include "Schema/Dictionaries.h"
#include "SchemaInUse.h"
#include "Utils/Test/DeterministicScope.h"
#include "WrappedAtoms.h"

#include <algorithm>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <set>

#include <malloc.h>

namespace Vantry { namespace Application {

namespace fs = std::filesystem;
using Rate = Templates::Rational<int>;

namespace {

Rate const USUAL_RATE = 25;
UInt64 const LARGEST_KAG_SIZE = 1 << 20;

// A value in a metadata set has 65535 bytes at most; a name has two for each
// element of UTF-16 and for its end.
std::size_t const LONGEST_NAME = 32766;

/// Blocks of one size come and go all the time: they stay with the program,
/// which would else have to touch them anew.
void keepMemory()
{
    int const kept = 16 << 20;
    ::mallopt(M_MMAP_THRESHOLD, kept);
    ::mallopt(M_TRIM_THRESHOLD, kept);
}

std::string textOf(Rate const & rate)
{
    return fmt::format("{}/{}", rate.numerator(), rate.denominator());
}

/// Whether a file is an input, or is in the folder that is one.
bool isIn(std::string const & input, fs::path const & name)
{
    std::error_code ignored;
    fs::path const folder = name.parent_path() / ".";
    return fs::equivalent(name, input, ignored) ||
           (fs::is_directory(input, ignored) && fs::equivalent(folder, input, ignored));
}

std::string lineOf(WrappedFile const & file)
{
    std::size_t const tracks = file.tracks();
    std::string lines = fmt::format("{}  {} track{}, {} edit units, {} bytes\n", file.target().string(), tracks,
                                    tracks == 1 ? "" : "s", file.editUnits(), file.size());
    for (auto const & input : file.inputs())
        if (input->isLeft())
            lines += fmt::format("  {} goes on behind the pictures, and was left there\n", input->file());
    return lines;
}

nlohmann::ordered_json jsonOf(WrappedFile const & file)
{
    nlohmann::ordered_json json;
    json["file"] = file.target().string();
    json["edit_units"] = file.editUnits();
    json["bytes"] = file.size();
    json["tracks"] = nlohmann::ordered_json::array();
    for (std::size_t i = 0; i < file.inputs().size(); ++i)
    {
        WrapInput const & input = *file.inputs()[i];
        json["tracks"].push_back(
            {{"track", file.trackID(i)}, {"kind", input.kind()}, {"input", input.file()}, {"cut", input.isLeft()}});
    }
    return json;
}

}

char const * WrapCommand::summary() const
{
    return "Make an MXF file from essence";
}

char const * WrapCommand::example() const
{
    return "vantry wrap picture.m2v left.wav right.wav -o a.mxf --timecode 10:00:00:00";
}

char const * WrapCommand::jsonForm() const
{
    return "Give the list of what was written as JSON on standard output";
}

void WrapCommand::declareOptions(Options & options)
{
    options.files(
        inputs_, "INPUT",
        "Wave files, streams of MPEG-2 video (also in PES packets) and DV, AVI files of these and PCM, folders of "
        "JPEG 2000 codestreams, sound of SMPTE 302M, ancillary data of SMPTE 436M");
    options.requiredText("-o,--output", output_, "FILE", "The file to make; of several in opatom, the folder for them");
    options.text("--pattern", pattern_, "op1a|opatom",
                 "Make one file of all (default), or a file of each with a clip, which belong together");
    options.text("--wrapping", wrapping_, "frame|clip", "Wrap frame by frame (default), or one input as a clip");
    options.flag("--d10", isD10_, "Make a D-10 file of MPEG-2 intra frames and up to eight channels of sound");
    options.text("--edit-rate", editRate_, "N/D", "Edit units per second; by default the pictures', else 25/1");
    options.text("--timecode", timeCode_, "HH:MM:SS:FF",
                 "The first time code; with ; ahead of FF for drop frame; by default that of the essence, else 0");
    options.text("--name", name_, "TEXT", "The name of the material package");
    options.number("--kag", kagSize_, "N", "The grid, in bytes, on which elements begin; 512 by default");
    options.number("--partition-every", editUnitsPerPartition_, "N", "Begin a partition every N edit units");
    options.text("--index-in", indexPlace_, "header|body|end",
                 "Put the index into the header, behind each part of the essence, or behind all of it (default)");
    options.flag("--no-rip", hasNoRIP_, "Write no random index pack");
    options.flag("--deterministic", isDeterministic_, "Make the same bytes from the same input");
    options.flag("--force", force_, "Replace a file that is there already");
}

void WrapCommand::run(CommonOptions const & common, Output & output)
{
    WrapSettings const settings = checked(this->settings());
    keepMemory();
    std::optional<Utils::Test::DeterministicScope> deterministic;
    if (settings.isDeterministic)
        deterministic.emplace();

    Interruption const interruption;
    std::optional<OutputFolder> folder;
    if (makesFolder(settings))
        folder.emplace(output_);
    Files const files = makeFiles(settings, common);
    write(files, common.quiet);
    for (auto const & file : files)
        file->publish();

    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (auto const & file : files)
        if (common.json)
            list.push_back(jsonOf(*file));
        else
            output.buffer().append(lineOf(*file));
    if (common.json)
        output.buffer().append(list.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n");
}

void WrapCommand::wrongUsage(std::string const & problem) const
{
    throw Failure(ExitStatus::WRONG_USAGE, output_, problem);
}

WrapSettings WrapCommand::settings() const
{
    WrapSettings settings;
    if (pattern_ != "op1a" && pattern_ != "opatom")
        wrongUsage("--pattern is op1a or opatom, not " + pattern_);
    if (!wrapping_.empty() && wrapping_ != "frame" && wrapping_ != "clip")
        wrongUsage("--wrapping is frame or clip, not " + wrapping_);
    settings.isAtom = pattern_ == "opatom";
    settings.isClip = wrapping_ == "clip" || settings.isAtom;
    if (settings.isAtom && wrapping_ == "frame")
        wrongUsage("--pattern opatom takes clips, not frames");

    settings.isD10 = isD10_;
    if (settings.isD10 && settings.isClip)
        wrongUsage("--d10 is op1a, and wraps by the frame");

    if (!editRate_.empty() && !(settings.editRate = editRateOf(editRate_)))
        wrongUsage("--edit-rate " + editRate_ + " is no rate such as 25/1");
    if (!timeCode_.empty() && !(settings.timeCode = WrittenTimeCode::of(timeCode_)))
        wrongUsage("--timecode " + timeCode_ + " is no time code such as 10:00:00:00");

    if (indexPlace_ == "header")
        settings.indexPlace = IndexPlace::HEADER;
    else if (indexPlace_ == "body")
        settings.indexPlace = IndexPlace::BODY;
    else if (indexPlace_ != "end")
        wrongUsage("--index-in is header, body or end, not " + indexPlace_);

    settings.name = name_;
    if (Platform::stringToWstring(name_.c_str()).size() > LONGEST_NAME)
        wrongUsage(fmt::format("--name has {} characters at most", LONGEST_NAME));
    settings.kagSize = number(kagSize_, "--kag", LARGEST_KAG_SIZE, settings.kagSize);
    if (settings.isD10 && settings.kagSize != WrapSettings::USUAL_KAG_SIZE)
        wrongUsage(fmt::format("--d10 has a grid of {} bytes", WrapSettings::USUAL_KAG_SIZE));
    settings.editUnitsPerPartition = number(editUnitsPerPartition_, "--partition-every", ~0u, 0);
    settings.hasRIP = !hasNoRIP_;
    settings.isDeterministic = isDeterministic_;
    return settings;
}

unsigned int WrapCommand::number(std::optional<UInt64> const & given, char const * name, UInt64 most,
                                 unsigned int usual) const
{
    if (!given)
        return usual;
    if (*given == 0 || *given > most)
        wrongUsage(fmt::format("{} goes from 1 to {}", name, most));
    return static_cast<unsigned int>(*given);
}

void WrapCommand::requireOutput() const
{
    if (output_ == "-")
        wrongUsage("an MXF file can't go to standard output, for its header is completed last");
    if (output_.empty())
        requireFileName();
}

// A target that is nothing but folders stays without a name for the file.
void WrapCommand::requireFileName() const
{
    if (!fs::path(output_).has_filename())
        throw Failure(ExitStatus::WRONG_USAGE, name(), fmt::format("--output '{}' names no file", output_));
}

std::vector<FoundEssence> WrapCommand::findAll() const
{
    std::vector<FoundEssence> all;
    for (std::string const & file : inputs_)
        for (FoundEssence & found : findEssence(file))
            all.push_back(std::move(found));

    // So they are in a content package, and their tracks in the file.
    std::stable_sort(all.begin(), all.end(),
                     [](auto const & a, auto const & b) { return itemOf(a.kind) < itemOf(b.kind); });
    requireDataOnce(all);
    return all;
}

// A content package has one element of each kind of data.
void WrapCommand::requireDataOnce(std::vector<FoundEssence> const & all) const
{
    std::set<EssenceKind> kinds;
    for (FoundEssence const & found : all)
        if (itemOf(found.kind) == Item::DATA && !kinds.insert(found.kind).second)
            wrongUsage("a file takes one input with such data, and " + found.file + " is another");
}

WrapSettings WrapCommand::checked(WrapSettings const & settings)
{
    requireOutput();
    if (settings.isClip && settings.editUnitsPerPartition != 0)
        wrongUsage("--partition-every doesn't go with a clip, which stays whole");
    essence_ = findAll();
    if (settings.isClip && !settings.isAtom && essence_.size() != 1)
        wrongUsage(fmt::format("--wrapping clip takes one input, these are {}", essence_.size()));
    if (!makesFolder(settings))
        requireFileName();
    return settings;
}

WrappedFile::Inputs WrapCommand::openInputs(WrapSettings const & settings) const
{
    if (settings.isD10)
        return openD10Inputs(essence_);

    bool const hasPictures =
        std::any_of(essence_.begin(), essence_.end(), [](auto const & found) { return isPictureKind(found.kind); });
    TakenAs const frames = hasPictures ? TakenAs::FRAMES_BESIDE_PICTURES : TakenAs::FRAMES;

    WrappedFile::Inputs inputs;
    for (FoundEssence const & found : essence_)
        inputs.push_back(std::make_unique<WrapInput>(found, settings.isClip ? TakenAs::CLIP : frames));
    return inputs;
}

Rate WrapCommand::rateOf(WrapSettings const & settings, WrappedFile::Inputs const & inputs) const
{
    std::optional<Rate> rate = settings.editRate;
    bool hasPredicted = false;
    for (auto const & input : inputs)
    {
        std::optional<Rate> const own = input->rate();
        if (own && rate && *own != *rate)
            wrongUsage(fmt::format("{} has {} pictures a second, and the file {}", input->file(), textOf(*own),
                                   textOf(*rate)));
        rate = own ? own : rate;

        bool const isPredicted = input->analyzer()->containsTemporalDependencies();
        if (isPredicted && hasPredicted && !settings.isAtom)
            wrongUsage("a file takes one input with predicted pictures, and " + input->file() + " is another");
        hasPredicted = hasPredicted || isPredicted;
    }
    return rate.value_or(USUAL_RATE);
}

void WrapCommand::checkTimeCode(WrapSettings const & settings, Rate const & rate) const
{
    std::optional<unsigned char> const base = timeCodeBase(rate);
    if (!base)
        wrongUsage("there is no time code at " + textOf(rate) + " edit units a second");
    try
    {
        if (settings.timeCode)
            settings.timeCode->at(*base);
    }
    catch (Exceptions::InvalidValue const &)
    {
        wrongUsage(fmt::format("there is no time code {} at {} edit units a second", timeCode_, textOf(rate)));
    }
}

WrapCommand::Files WrapCommand::makeFiles(WrapSettings const & settings, CommonOptions const & common) const
{
    PatternBuilder::Dictionary const dictionary = Schema::makeDictionary(SchemaInUse(common.dictionary).tables());
    WrappedFile::Inputs inputs = openInputs(settings);
    Rate const rate = rateOf(settings, inputs);
    checkTimeCode(settings, rate);

    Files files;
    auto const add = [&](fs::path const & target, WrappedFile::Inputs taken)
    {
        requireNoInput(target);
        files.push_back(std::make_unique<WrappedFile>(settings, dictionary, rate, std::move(taken), target, force_));
    };
    if (!makesFolder(settings))
    {
        add(output_, std::move(inputs));
        return files;
    }
    for (std::unique_ptr<WrapInput> & input : inputs)
    {
        fs::path const target = targetOf(input->file(), files);
        WrappedFile::Inputs one;
        one.push_back(std::move(input));
        add(target, std::move(one));
    }
    return files;
}

// Not even --force lets a file take the place of what it is made from.
void WrapCommand::requireNoInput(fs::path const & target) const
{
    if (std::any_of(inputs_.begin(), inputs_.end(), [&](std::string const & input) { return isIn(input, target); }))
        throw Failure(ExitStatus::WRONG_USAGE, target.string(),
                      "is an input or lies in one, and inputs stay as they are");
    std::error_code ignored;
    if (fs::is_directory(target, ignored))
        throw Failure(ExitStatus::FAILED, target.string(), "is a directory");
}

// The input's name, with a number where several have it.
fs::path WrapCommand::targetOf(std::string const & input, Files const & files) const
{
    fs::path const path = fs::path(input).has_filename() ? fs::path(input) : fs::path(input).parent_path();
    std::string const stem = path.stem().string();
    fs::path target = fs::path(output_) / (stem + ".mxf");
    auto const isTaken = [&](auto const & file)
    {
        return file->target() == target;
    };
    for (int i = 2; std::any_of(files.begin(), files.end(), isTaken); ++i)
        target = fs::path(output_) / fmt::format("{}_{}.mxf", stem, i);
    return target;
}

void WrapCommand::write(Files const & files, bool quiet) const
{
    WrappedAtoms const atoms(files);
    std::optional<Utils::TimeCode> ofSet;
    for (auto const & file : files)
    {
        file->start(ofSet);
        ofSet = files.front()->startTimeCode();
    }
    atoms.aggregate();
    writeEssence(files, quiet);
    atoms.shareDurations();
    for (auto const & file : files)
        file->finish();
}

void WrapCommand::writeEssence(Files const & files, bool quiet) const
{
    UInt64 total = 0;
    for (auto const & file : files)
        for (auto const & input : file->inputs())
            total += input->size();

    Progress progress(total, quiet);
    UInt64 done = 0;
    for (auto const & file : files)
    {
        while (file->writeUnit())
        {
            if (Interruption::isWanted())
                throw Failure(ExitStatus::FAILED, output_, "interrupted");
            progress.show(done + file->size());
        }
        done += file->size();
    }
}

}}
