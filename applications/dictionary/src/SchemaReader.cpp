#include "SchemaReader.h"

#include "DistinguishedValue.h"
#include "Exceptions/BaseException.h"
#include "Schema/SchemaError.h"
#include "Types/BaseType.h"
#include "Utils/Text.h"

#include <nlohmann/json.hpp>

#include <limits>
#include <set>

namespace Vantry { namespace Schema {

namespace {

// The order of sets and attributes is the file's.
using Json = nlohmann::ordered_json;

namespace Id = Types::Identifiers;

// An object of the file, with its fields and its place for messages.
class Entry
{
public:
    Entry(Json const & json, std::string place) : json_(json), place_(std::move(place))
    {
        if (!json_.is_object())
            throw SchemaError(place_ + ": must be an object");
    }

    std::string const & place() const { return place_; }

    [[noreturn]] void fail(std::string const & field, std::string const & what) const
    {
        throw SchemaError(place_ + ", field '" + field + "': " + what);
    }

    // A misspelled field must not be passed over in silence.
    void allow(std::set<std::string> const & fields) const
    {
        for (auto const & field : json_.items())
            if (fields.count(field.key()) == 0)
                fail(field.key(), "is not known");
    }

    bool has(std::string const & field) const { return json_.contains(field); }

    Json const & at(std::string const & field) const
    {
        if (!has(field))
            fail(field, "is missing");
        return json_.at(field);
    }

    std::string text(std::string const & field) const
    {
        Json const & value = at(field);
        if (!value.is_string())
            fail(field, "must be a text");
        return value.get<std::string>();
    }

    std::string text(std::string const & field, std::string const & otherwise) const
    {
        return has(field) ? text(field) : otherwise;
    }

    UInt32 number(std::string const & field, UInt32 otherwise) const
    {
        if (!has(field))
            return otherwise;
        Json const & value = at(field);
        if (!value.is_number_unsigned() || value.get<UInt64>() > std::numeric_limits<UInt32>::max())
            fail(field, "must be a number from 0 to 4294967295");
        return value.get<UInt32>();
    }

    // Hexadecimal digits in pairs; dots and blanks between pairs are passed
    // over.
    std::vector<unsigned char> bytes(std::string const & field) const
    {
        std::vector<unsigned char> result;
        if (!parseBytes(text(field), result))
            fail(field, "must be bytes in hexadecimal, such as \"06.0e.2b.34\"");
        return result;
    }

    LabelBytes label(std::string const & field) const
    {
        LabelBytes result;
        if (!parseLabel(text(field), result))
            fail(field, "must be 16 bytes in hexadecimal, with dots between them");
        return result;
    }

    static bool parseLabel(std::string const & text, LabelBytes & label)
    {
        std::vector<unsigned char> bytes;
        if (!parseBytes(text, bytes) || bytes.size() != sizeof label.bytes)
            return false;
        std::copy(bytes.begin(), bytes.end(), label.bytes);
        return true;
    }

private:
    static int digit(char c)
    {
        static std::string const DIGITS = "0123456789abcdef";
        auto const place = DIGITS.find(static_cast<char>(std::tolower(static_cast<unsigned char>(c))));
        return place != std::string::npos ? static_cast<int>(place) : -1;
    }

    static bool parseBytes(std::string const & text, std::vector<unsigned char> & bytes)
    {
        for (std::size_t i = 0; i < text.size();)
        {
            if (text[i] == '.' || text[i] == ' ')
            {
                ++i;
                continue;
            }
            int const high = digit(text[i]);
            int const low = i + 1 < text.size() ? digit(text[i + 1]) : -1;
            if (high < 0 || low < 0)
                return false;
            bytes.push_back(static_cast<unsigned char>(high << 4 | low));
            i += 2;
        }
        return true;
    }

    Json const & json_;
    std::string place_;
};

Id::Identifier typeOf(Entry const & entry, std::string const & field)
{
    std::string const name = entry.text(field);
    Id::Identifier const type = Id::stringToIdentifier(Utils::stringToWstring(name.c_str()).c_str());
    if (type == Id::Unknown && name != "Unknown")
        entry.fail(field, "there is no type '" + name + "'");
    return type;
}

MetaMetadata::AttributeRequiredStatus::Status statusOf(Entry const & entry, std::string const & text)
{
    try
    {
        return MetaMetadata::AttributeRequiredStatus::instance().statusFromText(
            Utils::stringToWstring(text.c_str()).c_str());
    }
    catch (Exceptions::BaseException const &)
    {
        entry.fail("status", "'" + text + "' is none of Req, E/req, D/req, B.Effort and Opt");
    }
}

bool isReference(Id::Identifier type)
{
    return type == Id::StrongReference || type == Id::WeakReference;
}

void checkType(Entry const & entry, ElementEntry const & element)
{
    bool const collection = element.type == Id::Array || element.type == Id::Batch;
    if (collection != entry.has("of"))
        entry.fail("of", collection ? "is missing: it is the type of each value" : "is for Array and Batch alone");
    if (collection && (element.subType == Id::Array || element.subType == Id::Batch))
        entry.fail("of", "collections of collections don't exist");
    if (element.minimum > element.maximum)
        entry.fail("minimum", "is more than the maximum");
    if (entry.has("references") && !isReference(collection ? element.subType : element.type))
        entry.fail("references", "is for references alone");
}

void readReferences(Entry const & entry, ElementEntry & element)
{
    if (!entry.has("references"))
        return;

    Json const & references = entry.at("references");
    if (!references.is_array())
        entry.fail("references", "must be a list of sets");
    for (Json const & reference : references)
    {
        if (!reference.is_string())
            entry.fail("references", "must be a list of sets");
        auto const text = reference.get<std::string>();
        LabelBytes key;
        if (Entry::parseLabel(text, key))
            element.references.push_back(key);
        else
            element.referencedSets.push_back(text);
    }
}

void readDistinguished(Entry const & entry, ElementEntry & element)
{
    if (!entry.has("distinguished"))
        return;

    element.distinguished = entry.bytes("distinguished");
    try
    {
        makeDistinguished({element.distinguished.data(), element.distinguished.size()}, element.type, element.subType);
    }
    catch (Exceptions::BaseException const &)
    {
        entry.fail("distinguished", "is no value of the type in its wire form");
    }
}

UInt16 tagOf(Entry const & entry)
{
    if (!entry.has("tag"))
        return 0;
    std::vector<unsigned char> const bytes = entry.bytes("tag");
    if (bytes.size() != 2 || (bytes[0] | bytes[1]) == 0)
        entry.fail("tag", "must be two bytes other than 00.00");
    return static_cast<UInt16>(bytes[0] << 8 | bytes[1]);
}

ElementEntry readElement(std::string const & symbol, Entry const & entry)
{
    entry.allow({"name", "label", "type", "of", "tag", "minimum", "maximum", "references", "distinguished"});

    ElementEntry element{};
    element.symbol = symbol;
    element.place = entry.place();
    element.name = entry.text("name", symbol);
    element.label = entry.label("label");
    element.type = typeOf(entry, "type");
    element.subType = entry.has("of") ? typeOf(entry, "of") : Id::Unknown;
    element.minimum = entry.number("minimum", 0);
    element.maximum = entry.number("maximum", std::numeric_limits<UInt32>::max());
    element.tag = tagOf(entry);
    readReferences(entry, element);
    checkType(entry, element);
    readDistinguished(entry, element);
    return element;
}

AttributeEntry readAttribute(std::string const & symbol, Json const & json, std::string const & place)
{
    if (json.is_string())
    {
        Json const empty = Json::object();
        return {symbol, statusOf(Entry(empty, place), json.get<std::string>()), ""};
    }

    Entry const entry(json, place);
    entry.allow({"status", "semantics"});
    return {symbol, statusOf(entry, entry.text("status")), entry.text("semantics", "")};
}

SetEntry readSet(std::string const & symbol, Entry const & entry)
{
    entry.allow({"name", "key", "attributes"});

    SetEntry set{symbol, entry.text("name", symbol), entry.label("key"), {}, entry.place()};
    Json const & attributes = entry.at("attributes");
    if (!attributes.is_object())
        entry.fail("attributes", "must be an object");
    for (auto const & attribute : attributes.items())
        set.attributes.push_back(
            readAttribute(attribute.key(), attribute.value(), entry.place() + ", attribute '" + attribute.key() + "'"));
    return set;
}

// Calls `read` for each entry of a section, if the file has that section.
template <class Read>
void forEachEntry(Entry const & file, std::string const & section, Read const & read)
{
    if (!file.has(section))
        return;
    Json const & entries = file.at(section);
    if (!entries.is_object())
        file.fail(section, "must be an object");
    for (auto const & entry : entries.items())
        read(entry.key(), entry.value());
}

Json parse(std::string const & text, std::string const & source)
{
    try
    {
        return Json::parse(text);
    }
    catch (Json::parse_error const & error)
    {
        // A mark for programs comes first, in brackets.
        std::string const problem = error.what();
        throw SchemaError(source + ": " + problem.substr(problem.find(' ') + 1));
    }
}

}

SchemaFile readSchema(std::string const & text, std::string const & source)
{
    Json const json = parse(text, source);
    Entry const file(json, source);
    file.allow({"elements", "sets", "labels"});

    SchemaFile result;
    forEachEntry(
        file, "elements",
        [&](std::string const & symbol, Json const & value)
        { result.elements.push_back(readElement(symbol, Entry(value, source + ": element '" + symbol + "'"))); });
    forEachEntry(file, "sets",
                 [&](std::string const & symbol, Json const & value)
                 { result.sets.push_back(readSet(symbol, Entry(value, source + ": set '" + symbol + "'"))); });
    forEachEntry(file, "labels",
                 [&](std::string const & label, Json const & name)
                 {
                     LabelBytes bytes;
                     if (!Entry::parseLabel(label, bytes) || !name.is_string())
                         file.fail("labels", "'" + label + "' must be 16 bytes in hexadecimal, and its name a text");
                     result.labels.emplace_back(bytes, name.get<std::string>());
                 });
    return result;
}

}}
