#include "FileReport.h"

#include "ContainerReport.h"
#include "DataIO/RandomAccessDataSource.h"
#include "FileLayout.h"
#include "IndexSurvey.h"
#include "LayoutFaults.h"
#include "MXFIO/Partition.h"
#include "Metadata/MetadataSet.h"
#include "MetadataChoice.h"
#include "MetadataTree.h"
#include "PackageReport.h"
#include "Packs/PartitionPack.h"
#include "PartitionText.h"
#include "Schema/LabelNames.h"
#include "SetNames.h"
#include "Text.h"
#include "Types/UniversalLabel.h"
#include "Warnings.h"

#include <cstring>
#include <iterator>

namespace Vantry { namespace Application {

namespace {

using Json = nlohmann::ordered_json;

/// "OP1a" to "OP3c" or "OPAtom"; empty for a label of another kind.
std::string shortPatternName(unsigned char const * label)
{
    unsigned char const START[] = {0x0D, 1, 2, 1};
    unsigned char const ATOM = 0x10;
    unsigned char const * const pattern = label + 8;
    if (std::memcmp(pattern, START, sizeof(START)) != 0)
        return "";

    unsigned char const items = pattern[4];
    unsigned char const packages = pattern[5];
    if (items == ATOM)
        return "OPAtom";
    bool const isGeneral = items >= 1 && items <= 3 && packages >= 1 && packages <= 3;
    return isGeneral ? fmt::format("OP{}{:c}", items, 'a' + packages - 1) : "";
}

Json patternOf(Packs::PartitionPack const & pack, Schema::Tables const & tables)
{
    Types::UniversalLabel const & label = pack.operationalPattern();
    std::string const shortName = shortPatternName(label.rawBuffer());
    char const * const name = shortName.empty() ? Schema::findLabelName(tables, label.rawBuffer()) : shortName.c_str();
    return {{"label", textOf(label, Types::StringRepresentationEncodingType::DOTTED_BYTES)},
            {"name", name != nullptr ? Json(name) : Json()}};
}

Json partitionsOf(FileLayout const & layout)
{
    Json all = Json::array();
    for (MXFIO::Partition const * partition : layout.partitions())
    {
        Packs::PartitionPack const & pack = partition->partitionPack();
        all.push_back({{"offset", partition->partitionAbsoluteOffset()},
                       {"kind", kindOf(pack)},
                       {"status", statusOf(pack)},
                       {"major", pack.majorVersion()},
                       {"minor", pack.minorVersion()},
                       {"kag_size", pack.kagSize()},
                       {"this_partition", pack.thisPartition()},
                       {"previous_partition", pack.previousPartition()},
                       {"footer_partition", pack.footerPartition()},
                       {"header_byte_count", pack.headerByteCount()},
                       {"index_byte_count", pack.indexByteCount()},
                       {"index_sid", pack.indexSID()},
                       {"body_sid", pack.bodySID()},
                       {"body_offset", pack.bodyOffset()}});
    }
    return all;
}

Json ripOf(FileLayout const & layout)
{
    if (layout.randomIndexPack() == nullptr)
        return nullptr;
    Json all = Json::array();
    for (auto const & [offset, bodySID] : layout.randomIndexPack()->offsetIndexedMap())
        all.push_back({{"body_sid", bodySID}, {"offset", offset}});
    return all;
}

Json headerMetadataOf(MetadataChoice const & choice, MetadataTree const & tree, Warnings & warnings)
{
    Metadata::PartitionMetadata const & metadata = *choice.header.metadata;
    auto const lost = static_cast<std::size_t>(std::distance(metadata.darkBegin(), metadata.darkEnd()));
    std::size_t dark = lost;
    std::size_t invalid = 0;
    for (MetadataTree::Node const & node : tree.nodes())
    {
        bool const isDark = node.set->metaMetadataSet() == nullptr;
        dark += isDark;
        invalid += isDark ? 0 : node.set->invalidSize();
    }
    std::string_view const status = statusOf(choice.partition->partitionPack());
    if (status != "closed_complete")
        warnings.add(fmt::format("no partition has closed and complete metadata: those at offset {} are {}",
                                 choice.partition->partitionAbsoluteOffset(), status));
    if (dark != 0)
        warnings.add(
            fmt::format("dark metadata sets, which the dictionary doesn't know or which are damaged: {}", dark));
    if (invalid != 0)
        warnings.add(fmt::format("elements of metadata sets that are unknown, misplaced or invalid: {}", invalid));
    return {{"partition_offset", choice.partition->partitionAbsoluteOffset()},
            {"status", status},
            {"sets", tree.nodes().size() + lost},
            {"dark_sets", dark},
            {"invalid_elements", invalid}};
}

}

std::optional<Json> reportOf(std::string const & name, DataIO::RandomAccessDataSource & file,
                             Schema::Tables const & tables)
{
    Warnings warnings;
    FileLayout const layout(file, warnings);
    if (layout.partitions().empty())
        return std::nullopt;

    findLayoutFaults(layout, warnings);
    SetNames const names(tables);
    MetadataChoice const choice = chooseMetadata(layout, tables, warnings);
    MetadataTree const tree(*choice.header.metadata, names);
    warnings.add(tree.warnings());
    StreamIndexes const indexes = readIndexes(layout, warnings);

    PackageReport const packages(*choice.header.metadata, tree, tables, names, warnings);
    Json report = {{"file", name},
                   {"size", layout.size()},
                   {"run_in", layout.runIn()},
                   {"operational_pattern", patternOf(choice.partition->partitionPack(), tables)},
                   {"header_metadata", headerMetadataOf(choice, tree, warnings)},
                   {"partitions", partitionsOf(layout)},
                   {"random_index_pack", ripOf(layout)},
                   {"identifications", packages.identifications()},
                   {"packages", packages.packages()},
                   {"containers", ContainerReport(layout, indexes, tree, warnings).containers()}};
    report["warnings"] = warnings.all();
    return report;
}

}}
