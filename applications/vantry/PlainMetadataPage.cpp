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

#include <algorithm>
#include <iterator>

namespace Vantry { namespace Application {

namespace {

using Json = ValueReport::Json;

// A line that nobody wants to scroll along. JSON has all bytes.
std::size_t const LONGEST_BYTES = 64;

unsigned const INDENT = 2;

// Beyond that the place in the tree would take more room than the metadata.
unsigned const DEEPEST_INDENT = 20;

unsigned indentOf(MetadataTree::Node const & node)
{
    return INDENT * std::min(node.depth, DEEPEST_INDENT);
}

std::string_view orDash(std::string const & text)
{
    return text.empty() ? std::string_view("-") : std::string_view(text);
}

std::string typeOf(ElementReport const & element)
{
    return element.itemType.empty() ? std::string(orDash(element.type)) : element.type + " of " + element.itemType;
}

/// The name, or what there is in place of one.
std::string_view nameOf(ElementReport const & element)
{
    return orDash(element.name.empty() ? element.label : element.name);
}

bool isText(ElementReport const & element)
{
    return element.type == "UTF16CharString" || element.type == "ISO7bitCharString";
}

/// Lines of one set.
class Paragraph
{
public:
    Paragraph(fmt::memory_buffer & text, MetadataTree const & tree, SetNames const & names) :
        text_(text), tree_(tree), names_(names)
    {
    }

    void heading(MetadataTree::Node const & node)
    {
        fmt::format_to(std::back_inserter(text_), "{:{}}", "", indentOf(node));
        appendName(node);
        fmt::format_to(std::back_inserter(text_), "  {}{}\n",
                       textOf(Types::UniversalLabel(node.set->key()), TextForm::DOTTED_BYTES),
                       node.set->metaMetadataSet() == nullptr ? "  (dark)" : "");
    }

    void elements(std::vector<ElementReport> const & elements, unsigned indent)
    {
        std::size_t nameWidth = 0;
        std::size_t typeWidth = 0;
        for (ElementReport const & element : elements)
        {
            nameWidth = std::max(nameWidth, nameOf(element).size());
            typeWidth = std::max(typeWidth, typeOf(element).size());
        }

        for (ElementReport const & element : elements)
        {
            std::size_t const start = text_.size();
            fmt::format_to(std::back_inserter(text_), "{:{}}{:<{}}  {:<5}  {:<{}}  ", "", indent, nameOf(element),
                           nameWidth, orDash(element.tag), typeOf(element), typeWidth);
            std::replace_if(text_.begin() + start, text_.end(), isControl, ' ');
            if (!element.fault.empty())
                fmt::format_to(std::back_inserter(text_), "({}: {})  ", element.fault, element.reason);
            value(element);
            text_.push_back('\n');
        }
    }

private:
    using TextForm = Types::StringRepresentationEncodingType;

    void appendName(MetadataTree::Node const & node)
    {
        fmt::memory_buffer name;
        appendKeyName(name, node.set->key(), names_);
        appendOneLine(text_, std::string_view(name.data(), name.size()));
    }

    void value(ElementReport const & element)
    {
        if (isText(element) && element.value.is_string())
            appendOneLine(text_, element.value.dump(-1, ' ', false, Json::error_handler_t::replace));
        else
            value(element.value);
    }

    void value(Json const & value)
    {
        if (value.is_array())
            list(value);
        else if (value.contains("label"))
            label(value);
        else if (value.contains("instance"))
            reference(value);
        else
            appendOneLine(text_, value.is_string() ? value.get<std::string>() : value.dump());
    }

    void list(Json const & items)
    {
        char const * separator = "[";
        for (Json const & item : items)
        {
            text_.append(std::string_view(separator));
            value(item);
            separator = ", ";
        }
        text_.append(std::string_view(items.empty() ? "[]" : "]"));
    }

    void label(Json const & value)
    {
        appendOneLine(text_, value["label"].get<std::string>());
        if (value["name"].is_null())
            return;
        text_.append(std::string_view(" "));
        appendOneLine(text_, value["name"].get<std::string>());
    }

    void reference(Json const & value)
    {
        if (value["set"].is_null())
            text_.append(std::string_view("no set"));
        else
            appendName(tree_.nodes()[value["set"].get<MetadataTree::Place>()]);
        text_.push_back(' ');
        text_.append(value["instance"].get<std::string>());
    }

    fmt::memory_buffer & text_;
    MetadataTree const & tree_;
    SetNames const & names_;
};

}

void PlainMetadataPage::writeSets(Output & output) const
{
    SetReport const report(metadata_.partitionDictionary(), ValueReport(tables_, tree_, LONGEST_BYTES));
    fmt::memory_buffer & text = output.buffer();
    Paragraph paragraph(text, tree_, names_);
    for (MetadataTree::Place place = 0; place < tree_.nodes().size(); ++place)
    {
        if (place == tree_.outside())
            text.append(std::string_view("\nSets that the Preface doesn't lead to\n\n"));
        MetadataTree::Node const & node = tree_.nodes()[place];
        paragraph.heading(node);
        paragraph.elements(report(*node.set), indentOf(node) + 2 * INDENT);
        output.pieceDone();
    }
}

void PlainMetadataPage::writeDarkSets(Output & output) const
{
    fmt::memory_buffer & text = output.buffer();
    char const * title = "\nDark sets\n\n";
    for (auto place = metadata_.darkBegin(); place != metadata_.darkEnd(); ++place)
    {
        Metadata::DarkMetadataSet const & set = **place;
        fmt::memory_buffer name;
        appendKeyName(name, set.key(), names_);
        text.append(std::string_view(title));
        appendOneLine(text, std::string_view(name.data(), name.size()));
        fmt::format_to(std::back_inserter(text), "  {}  {}\n",
                       textOf(Types::UniversalLabel(set.key()), Types::StringRepresentationEncodingType::DOTTED_BYTES),
                       hexText(set.value().begin(), set.value().size(), LONGEST_BYTES));
        title = "";
        output.pieceDone();
    }
}

}}
