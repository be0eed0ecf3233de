#include "InfoCommand.h"

#include "CommonOptions.h"
#include "DataIO/RandomAccessDataSource.h"
#include "Failure.h"
#include "HeaderMetadata.h"
#include "Input.h"
#include "MetadataPage.h"
#include "MetadataTree.h"
#include "Options.h"
#include "Output.h"
#include "PartitionSearch.h"
#include "Schema/Dictionaries.h"
#include "SchemaInUse.h"
#include "SetNames.h"
#include "Text.h"

#include <nlohmann/json.hpp>

namespace Vantry { namespace Application {

namespace {

using Json = nlohmann::ordered_json;

HeaderMetadata readMetadata(std::string const & name, Schema::Tables const & tables)
{
    std::unique_ptr<DataIO::RandomAccessDataSource> const file = openRandomAccess(name);
    std::unique_ptr<Packs::PartitionPack> const pack = findFirstPartition(*file);
    if (!pack)
        throw Failure(ExitStatus::FAILED, name, "there is no partition at its start");
    return readHeaderMetadata(*file, pack->headerByteCount(), Schema::makeDictionary(tables));
}

std::string jsonOf(Json const & value)
{
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void writeJson(std::string const & file, JsonMetadataPage const & page, std::vector<std::string> const & warnings,
               Output & output)
{
    fmt::format_to(std::back_inserter(output.buffer()), "{{\"file\": {}, ", jsonOf(file));
    page.write(output);
    fmt::format_to(std::back_inserter(output.buffer()), ", \"warnings\": {}}}\n", jsonOf(warnings));
}

void writePlain(PlainMetadataPage const & page, std::vector<std::string> const & warnings, Output & output)
{
    page.write(output);
    if (warnings.empty())
        return;

    fmt::memory_buffer & text = output.buffer();
    text.append(std::string_view("\nWarnings\n\n"));
    for (std::string const & warning : warnings)
    {
        appendOneLine(text, warning);
        text.push_back('\n');
        output.pieceDone();
    }
}

}

char const * InfoCommand::summary() const
{
    return "Tell what a file is: the tree of its metadata sets";
}

char const * InfoCommand::example() const
{
    return "vantry info --metadata a.mxf";
}

void InfoCommand::declareOptions(Options & options)
{
    options.file(file_, "The file to tell of");
    options.requiredFlag("--metadata", "List the metadata sets of the header partition with all that is in them");
}

void InfoCommand::run(CommonOptions const & common, Output & output)
{
    SchemaInUse const schema(common.dictionary);
    SetNames const names(schema.tables());
    HeaderMetadata const header = readMetadata(file_, schema.tables());
    MetadataTree const tree(*header.metadata, names);

    std::vector<std::string> warnings = header.warnings;
    warnings.insert(warnings.end(), tree.warnings().begin(), tree.warnings().end());
    if (common.json)
        writeJson(file_, JsonMetadataPage(*header.metadata, tree, schema.tables(), names), warnings, output);
    else
        writePlain(PlainMetadataPage(*header.metadata, tree, schema.tables(), names), warnings, output);
}

}}
