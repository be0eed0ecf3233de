#include "MetadataPage.h"

#include "DataIO/Slice.h"
#include "KeyName.h"
#include "Metadata/DarkMetadataSet.h"
#include "Metadata/PartitionMetadata.h"
#include "MetadataTree.h"
#include "Output.h"
#include "SetReport.h"
#include "Text.h"
#include "Types/UniversalLabel.h"

#include <utility>

namespace Vantry { namespace Application {

namespace {

using Json = ValueReport::Json;
using TextForm = Types::StringRepresentationEncodingType;

Json orNull(std::string const & text)
{
    return text.empty() ? Json() : Json(text);
}

Json keyAndName(KLV::Key const & key, SetNames const & names)
{
    fmt::memory_buffer name;
    appendKeyName(name, key, names);
    return {{"key", textOf(Types::UniversalLabel(key), TextForm::DOTTED_BYTES)}, {"name", fmt::to_string(name)}};
}

Json objectOf(ElementReport && element)
{
    Json object = {{"name", orNull(element.symbol)}, {"tag", orNull(element.tag)}, {"type", orNull(element.type)}};
    if (!element.itemType.empty())
        object["of"] = element.itemType;
    object["value"] = std::move(element.value);
    if (!element.fault.empty())
    {
        object["fault"] = element.fault;
        object["reason"] = element.reason;
    }
    if (!element.label.empty())
        object["label"] = element.label;
    return object;
}

/// One list as a member, an item on each line.
class List
{
public:
    List(Output & output, std::string_view name) : output_(output)
    {
        fmt::format_to(std::back_inserter(output.buffer()), "\"{}\": [", name);
    }

    void item(Json const & item)
    {
        fmt::memory_buffer & text = output_.buffer();
        text.append(std::string_view(separator_));
        text.append(item.dump(-1, ' ', false, Json::error_handler_t::replace));
        separator_ = ",\n";
        output_.pieceDone();
    }

    void end(std::string_view behind) { output_.buffer().append(behind); }

private:
    Output & output_;
    char const * separator_ = "\n";
};

}

void JsonMetadataPage::writeSets(Output & output) const
{
    SetReport const report(metadata_.partitionDictionary(), ValueReport(tables_, tree_, ValueReport::ALL_BYTES));
    List list(output, "sets");
    for (MetadataTree::Node const & node : tree_.nodes())
    {
        Types::UUID const * const instanceUID = node.set->instanceUID();
        Json object = keyAndName(node.set->key(), names_);
        object["instance"] = instanceUID != nullptr ? Json(textOf(*instanceUID, TextForm::RFC4122)) : Json();
        object["parent"] = node.parent ? Json(*node.parent) : Json();
        object["dark"] = node.set->metaMetadataSet() == nullptr;
        Json & elements = object["elements"] = Json::array();
        for (ElementReport & element : report(*node.set))
            elements.push_back(objectOf(std::move(element)));
        list.item(object);
    }
    list.end("], ");
}

void JsonMetadataPage::writeDarkSets(Output & output) const
{
    List list(output, "dark_sets");
    for (auto place = metadata_.darkBegin(); place != metadata_.darkEnd(); ++place)
    {
        DataIO::Slice const & value = (*place)->value();
        Json object = keyAndName((*place)->key(), names_);
        object["value"] = hexText(value.begin(), value.size(), ValueReport::ALL_BYTES);
        list.item(object);
    }
    list.end("]");
}

}}
