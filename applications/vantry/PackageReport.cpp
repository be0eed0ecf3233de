#include "PackageReport.h"

#include "ElementContent.h"
#include "Exceptions/InvalidValue.h"
#include "KeyName.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/Identification.h"
#include "Metadata/Structural/Locator.h"
#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/StructuralMetadataULs.h"
#include "Metadata/Structural/TimecodeComponent.h"
#include "Metadata/Structural/Track.h"
#include "MetadataTree.h"
#include "SetReport.h"
#include "Text.h"
#include "TrackFacts.h"
#include "Types/Boolean.h"
#include "Types/Position.h"
#include "Types/Rational.h"
#include "Types/Timestamp.h"
#include "Types/UInt16.h"
#include "Types/UInt32.h"
#include "Types/UMID32.h"
#include "Types/UTF16String.h"
#include "Utils/TimeCode.h"
#include "Warnings.h"

namespace Vantry { namespace Application {

namespace {

namespace Structural = Metadata::Structural;
using Json = PackageReport::Json;

char const * kindOf(Structural::GenericPackage const & package, Json const & descriptors)
{
    if (dynamic_cast<Structural::MaterialPackage const *>(&package) != nullptr)
        return "material";
    if (descriptors.empty())
        return "source";
    return descriptors.front()["essence_container"].is_null() ? "physical" : "file";
}

/// "HH:MM:SS:FF", where frames count up to the rate.
std::string textOf(Utils::TimeCode const & timeCode)
{
    bool const countsPairs = timeCode.frameRate() == 50 || timeCode.frameRate() == 60;
    int const frames = countsPairs ? 2 * timeCode.frames() + timeCode.fieldPhase() : timeCode.frames();
    return fmt::format("{:02}:{:02}:{:02}{}{:02}", timeCode.hours(), timeCode.minutes(), timeCode.seconds(),
                       timeCode.dropFrame() ? ';' : ':', frames);
}

}

PackageReport::PackageReport(Metadata::PartitionMetadata const & metadata, MetadataTree const & tree,
                             Schema::Tables const & tables, SetNames const & names, Warnings & warnings) :
    metadata_(metadata), tree_(tree), values_(tables, tree, ValueReport::ALL_BYTES), names_(names), warnings_(warnings)
{
}

Json PackageReport::identifications() const
{
    Json all = Json::array();
    for (MetadataTree::Node const & node : tree_.nodes())
        if (auto const * const set = dynamic_cast<Structural::Identification const *>(node.set))
            all.push_back({{"company", valueOr(set->companyName(), "")},
                           {"product", valueOr(set->productName(), "")},
                           {"version", valueOr(set->versionString(), "")},
                           {"modified", valueOr(set->modifiedDate(), nullptr)},
                           {"platform", valueOr(set->platform(), "")}});
    return all;
}

Json PackageReport::packages() const
{
    Json material = Json::array();
    Json others = Json::array();
    for (MetadataTree::Node const & node : tree_.nodes())
        if (auto const * const set = dynamic_cast<Structural::GenericPackage const *>(node.set))
        {
            Json one = package(*set);
            (one["kind"] == "material" ? material : others).push_back(std::move(one));
        }
    for (Json & other : others)
        material.push_back(std::move(other));
    return material;
}

Json PackageReport::package(Structural::GenericPackage const & set) const
{
    Json found = descriptors(set);
    Json tracks = Json::array();
    for (unsigned int i = 0; i < set.tracksCount(); ++i)
        if (Structural::Track const * const one = set.track(i))
            tracks.push_back(track(*one));
    return {{"kind", kindOf(set, found)},
            {"umid", valueOr(set.packageUID(), nullptr)},
            {"name", valueOr(set.packageName(), "")},
            {"tracks", std::move(tracks)},
            {"descriptors", std::move(found)}};
}

Json PackageReport::track(Structural::Track const & track) const
{
    TrackFacts const facts(track);
    return {{"id", valueOr(track.trackID(), nullptr)},
            {"number",
             track.trackNumber() != nullptr ? Json(fmt::format("0x{:08x}", track.trackNumber()->value())) : Json()},
            {"name", valueOr(track.trackName(), "")},
            {"kind", facts.kind},
            {"edit_rate", valueOr(facts.editRate, nullptr)},
            {"origin", valueOr(facts.origin, nullptr)},
            {"duration", facts.duration ? Json(*facts.duration) : Json()},
            {"start_timecode", startTimecode(track)}};
}

Json PackageReport::startTimecode(Structural::Track const & track) const
{
    auto const * const component = dynamic_cast<Structural::TimecodeComponent const *>(firstComponentOf(track));
    if (component == nullptr || component->startTimecode() == nullptr || component->roundedTimecodeBase() == nullptr)
        return nullptr;

    unsigned int const base = component->roundedTimecodeBase()->value();
    Int64 const start = component->startTimecode()->value();
    bool const dropFrame = component->dropFrame() != nullptr && component->dropFrame()->value();
    try
    {
        if (base <= 0xFF && start >= 0)
            return textOf(Utils::TimeCode(static_cast<unsigned char>(base), start, dropFrame));
    }
    catch (Exceptions::InvalidValue const &)
    {
        // There is no such time code.
    }
    warnings_.add(fmt::format("a time code can't be: frame {} at {} frames per second{}", start, base,
                              dropFrame ? ", drop frame" : ""));
    return nullptr;
}

/// The descriptor of a package and all below it, but for locators.
Json PackageReport::descriptors(Metadata::MetadataSet const & package) const
{
    Json all = Json::array();
    Metadata::MetadataSet const * const top = ownedBy(package, Structural::StructuralMetadataULs::descriptor());
    if (top == nullptr)
        return all;

    std::vector<MetadataTree::Node> const & nodes = tree_.nodes();
    MetadataTree::Place const first = *tree_.find(*top->instanceUID());
    MetadataTree::Place place = first;
    do
    {
        Metadata::MetadataSet const & set = *nodes[place].set;
        if (dynamic_cast<Structural::Locator const *>(&set) == nullptr)
            all.push_back(descriptor(set)); // NOLINT(clang-analyzer-core.NonNullParamChecker): no reference is null
        ++place;
    } while (place < nodes.size() && nodes[place].depth > nodes[first].depth);
    return all;
}

Json PackageReport::descriptor(Metadata::MetadataSet const & set) const
{
    Json properties = Json::object();
    for (ElementReport & element : SetReport(metadata_.partitionDictionary(), values_)(set))
    {
        std::string const & name = !element.symbol.empty()  ? element.symbol
                                   : !element.label.empty() ? element.label
                                                            : element.tag;
        properties[name] = std::move(element.value);
    }

    fmt::memory_buffer name;
    appendKeyName(name, set.key(), names_);
    auto const property = [&](char const * symbol)
    {
        auto const found = properties.find(symbol);
        return found != properties.end() ? *found : Json();
    };
    return {{"class", fmt::to_string(name)},
            {"linked_track", property("linkedTrackID")},
            {"sample_rate", property("sampleRate")},
            {"essence_container", property("essenceContainer")},
            {"properties", std::move(properties)}};
}

}}
