#include "Schema/Definition.h"

#include "Schema/SchemaError.h"
#include "SchemaReader.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <vector>

namespace Vantry { namespace Schema {

namespace {

bool operator==(LabelBytes const & left, LabelBytes const & right)
{
    return std::memcmp(left.bytes, right.bytes, sizeof left.bytes) == 0;
}

struct LabelOrder
{
    bool operator()(LabelBytes const & left, LabelBytes const & right) const
    {
        return std::memcmp(left.bytes, right.bytes, sizeof left.bytes) < 0;
    }
};

template <class T>
Row<T> rowOf(std::vector<T> const & values)
{
    return {values.data(), values.size()};
}

// Puts an entry in the place of the one with its symbol or its label, or
// behind all others. When one entry has the symbol and another the label, it
// takes the place of both. Tells `replaced` of each that goes.
template <class Entry, class Replaced>
void addOrReplace(std::vector<Entry> & entries, Entry const & entry, Replaced const & replaced)
{
    auto const goes = [&](Entry const & other)
    {
        return other.symbol == entry.symbol || other.label == entry.label;
    };
    for (Entry const & other : entries)
        if (goes(other))
            replaced(other);

    auto const place = std::find_if(entries.begin(), entries.end(), goes);
    if (place == entries.end())
    {
        entries.push_back(entry);
        return;
    }
    entries.erase(std::remove_if(std::next(place), entries.end(), goes), entries.end());
    *place = entry;
}

template <class Entry>
std::map<std::string, std::size_t> indexOf(std::vector<Entry> const & entries)
{
    std::map<std::string, std::size_t> index;
    for (std::size_t i = 0; i < entries.size(); ++i)
        index[entries[i].symbol] = i;
    return index;
}

}

class Definition::Impl
{
public:
    void take(Tables const & tables)
    {
        for (ElementRow const & row : tables.elements)
            elements_.push_back({row.symbol,
                                 row.name,
                                 row.label,
                                 row.type,
                                 row.subType,
                                 row.minimum,
                                 row.maximum,
                                 row.tag,
                                 {row.distinguished.begin(), row.distinguished.end()},
                                 {},
                                 {row.references.begin(), row.references.end()},
                                 {}});
        for (SetRow const & row : tables.sets)
        {
            sets_.push_back({row.symbol, row.name, row.key, {}, {}});
            for (AttributeRow const & attribute : row.attributes)
                sets_.back().attributes.push_back(
                    {elements_[attribute.element].symbol, attribute.status, attribute.semantics});
        }
        for (NameRow const & row : tables.labels)
            labels_[row.label] = row.name;
    }

    void take(SchemaFile file, std::string const & source)
    {
        lastSource_ = source;
        for (ElementEntry const & element : file.elements)
            addOrReplace(elements_, element, [&](ElementEntry const & old) { followInSets(old, element); });
        for (SetEntry const & set : file.sets)
            addOrReplace(sets_, set, [&](SetEntry const & old) { followInReferences(old, set); });
        for (auto & label : file.labels)
            labels_[label.first] = std::move(label.second);
    }

    Tables tables()
    {
        makeElementRows();
        makeSetRows();
        nameRows_.clear();
        for (auto const & label : labels_)
            nameRows_.push_back({label.first, label.second.c_str()});
        return {rowOf(elementRows_), rowOf(setRows_), rowOf(nameRows_)};
    }

private:
    // Sets that hold the old element hold the new one from then on.
    void followInSets(ElementEntry const & old, ElementEntry const & element)
    {
        for (SetEntry & set : sets_)
            for (AttributeEntry & attribute : set.attributes)
                if (attribute.element == old.symbol)
                    attribute.element = element.symbol;
    }

    // Elements that refer to the old set refer to the new one from then on.
    void followInReferences(SetEntry const & old, SetEntry const & set)
    {
        for (ElementEntry & element : elements_)
        {
            std::replace(element.referencedSets.begin(), element.referencedSets.end(), old.symbol, set.symbol);
            for (LabelBytes & key : element.references)
                if (key == old.label)
                    key = set.label;
        }
    }

    void makeElementRows()
    {
        checkTags();
        auto const sets = indexOf(sets_);
        elementRows_.clear();
        for (ElementEntry & element : elements_)
        {
            resolveReferences(element, sets);
            elementRows_.push_back({element.symbol.c_str(), element.name.c_str(), element.label, element.type,
                                    element.subType, element.minimum, element.maximum, element.tag,
                                    rowOf(element.distinguished), rowOf(element.references)});
        }
    }

    // What is wrong with a built-in entry came with a file.
    template <class Entry>
    std::string placeOf(Entry const & entry, char const * kind) const
    {
        return entry.place.empty() ? lastSource_ + ": built-in " + kind + " '" + entry.symbol + "'" : entry.place;
    }

    // A tag that two elements had would mean the second in every file.
    void checkTags() const
    {
        std::map<UInt16, std::string> owners;
        for (ElementEntry const & element : elements_)
        {
            if (element.tag == 0)
                continue;
            auto const entered = owners.emplace(element.tag, element.symbol);
            if (!entered.second)
                throw SchemaError(placeOf(element, "element") + ", field 'tag': belongs to element '" +
                                  entered.first->second + "' too");
        }
    }

    // Sets may stand behind the elements that refer to them, in another file
    // even, so names are resolved at the end.
    void resolveReferences(ElementEntry & element, std::map<std::string, std::size_t> const & sets) const
    {
        for (std::string const & symbol : element.referencedSets)
        {
            auto const found = sets.find(symbol);
            if (found == sets.end())
                throw SchemaError(element.place + ", field 'references': there is no set '" + symbol + "'");
            element.references.push_back(sets_[found->second].label);
        }
        element.referencedSets.clear();
    }

    void makeSetRows()
    {
        auto const elements = indexOf(elements_);
        attributeRows_.clear();
        attributeRows_.reserve(sets_.size());
        setRows_.clear();
        for (SetEntry const & set : sets_)
        {
            attributeRows_.push_back(attributesOf(set, elements));
            setRows_.push_back({set.symbol.c_str(), set.name.c_str(), set.label, rowOf(attributeRows_.back())});
        }
    }

    std::vector<AttributeRow> attributesOf(SetEntry const & set,
                                           std::map<std::string, std::size_t> const & elements) const
    {
        std::vector<AttributeRow> rows;
        std::set<std::string> symbols;
        for (AttributeEntry const & attribute : set.attributes)
        {
            auto const found = elements.find(attribute.element);
            if (found == elements.end())
                throw SchemaError(placeOf(set, "set") + ", field 'attributes': there is no element '" +
                                  attribute.element + "'");
            if (!symbols.insert(attribute.element).second)
                throw SchemaError(placeOf(set, "set") + ", field 'attributes': has element '" + attribute.element +
                                  "' twice");
            rows.push_back({static_cast<UInt32>(found->second), attribute.status, attribute.semantics.c_str()});
        }
        return rows;
    }

    std::vector<ElementEntry> elements_;
    std::vector<SetEntry> sets_;
    std::map<LabelBytes, std::string, LabelOrder> labels_;
    std::string lastSource_;

    std::vector<ElementRow> elementRows_;
    std::vector<std::vector<AttributeRow>> attributeRows_;
    std::vector<SetRow> setRows_;
    std::vector<NameRow> nameRows_;
};

Definition::Definition() : impl_(new Impl) {}

Definition::Definition(Tables const & tables) : Definition()
{
    impl_->take(tables);
}

Definition::~Definition() = default;

void Definition::addFile(std::string const & path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    if (!file || !(text << file.rdbuf()))
        throw SchemaError(path + ": can't be read");
    addText(text.str(), path);
}

void Definition::addText(std::string const & text, std::string const & source)
{
    impl_->take(readSchema(text, source), source);
}

Tables Definition::tables()
{
    return impl_->tables();
}

}}
