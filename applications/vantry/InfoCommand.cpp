#include "InfoCommand.h"

#include "CommonOptions.h"
#include "DataIO/RandomAccessDataSource.h"
#include "Failure.h"
#include "FileReport.h"
#include "HeaderMetadata.h"
#include "Input.h"
#include "MetadataPage.h"
#include "MetadataTree.h"
#include "Options.h"
#include "Output.h"
#include "PartitionSearch.h"
#include "PlainFilePage.h"
#include "Schema/Dictionaries.h"
#include "SchemaInUse.h"
#include "SetNames.h"
#include "Text.h"
#include "Warnings.h"

#include <nlohmann/json.hpp>

namespace Vantry { namespace Application {

namespace {

using Json = nlohmann::ordered_json;

char const NO_PARTITION[] = "there is no partition at its start";

HeaderMetadata readMetadata(std::string const & name, Schema::Tables const & tables)
{
    std::unique_ptr<DataIO::RandomAccessDataSource> const file = openRandomAccess(name);
    std::unique_ptr<Packs::PartitionPack> const pack = findFirstPartition(*file);
    if (!pack)
        throw Failure(ExitStatus::FAILED, name, NO_PARTITION);
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
    return "Tell what a file is, how long, what is in it and what is wrong with it";
}

char const * InfoCommand::example() const
{
    return "vantry info a.mxf";
}

void InfoCommand::declareOptions(Options & options)
{
    options.file(file_, "The file to tell of");
    options.flag("--metadata", metadata_, "List the metadata sets of the header partition with all that is in them");
}

void InfoCommand::run(CommonOptions const & common, Output & output)
{
    if (metadata_)
        showMetadata(common, output);
    else
        showFile(common, output);
}

void InfoCommand::showFile(CommonOptions const & common, Output & output) const
{
    SchemaInUse const schema(common.dictionary);
    std::unique_ptr<DataIO::RandomAccessDataSource> const file = openRandomAccess(file_);
    std::optional<Json> const report = reportOf(file_, *file, schema.tables());
    if (!report)
        throw Failure(ExitStatus::FAILED, file_, NO_PARTITION);

    if (!common.json)
        return writePlainPage(*report, output);
    fmt::memory_buffer & text = output.buffer();
    text.append(jsonOf(*report));
    text.push_back('\n');
}

void InfoCommand::showMetadata(CommonOptions const & common, Output & output) const
{
    SchemaInUse const schema(common.dictionary);
    SetNames const names(schema.tables());
    HeaderMetadata const header = readMetadata(file_, schema.tables());
    MetadataTree const tree(*header.metadata, names);

    Warnings warnings;
    warnings.add(header.warnings);
    warnings.add(tree.warnings());
    if (common.json)
        writeJson(file_, JsonMetadataPage(*header.metadata, tree, schema.tables(), names), warnings.all(), output);
    else
        writePlain(PlainMetadataPage(*header.metadata, tree, schema.tables(), names), warnings.all(), output);
}

}}
