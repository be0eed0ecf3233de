#include "FileDictionary.h"

#include "DataIO/RandomAccessDataSource.h"
#include "FileRegion.h"
#include "KLV/Packet.h"
#include "PacketWalk.h"
#include "Schema/Dictionaries.h"

#include <algorithm>
#include <map>
#include <set>
#include <vector>

namespace Vantry { namespace Application {

namespace {

int const CODING_BYTE = 5;
int const REGISTRY_VERSION_BYTE = 7;

/// What is left of keys that may mean the same set.
KLV::Key essentialPartOf(KLV::Key key)
{
    key[CODING_BYTE] = 0;
    key[REGISTRY_VERSION_BYTE] = 0;
    return key;
}

class SetKeys : public PacketListener
{
public:
    void value(KLV::Packet &) override {}
    void packet(KLV::Packet const & packet, UInt64) override { found.insert(essentialPartOf(packet.key())); }
    void gap(UInt64, UInt64, bool) override {}

    std::set<KLV::Key> found;
};

std::set<KLV::Key> setKeysIn(DataIO::RandomAccessDataSource & file, UInt64 size)
{
    UInt64 const start = file.absoluteOffset();
    SetKeys keys;
    {
        // The end of the region moves the file.
        FileRegion region(file, std::min(size, file.remaining()));
        walkPackets(region, keys);
    }
    file.seek(start);
    return keys.found;
}

/// The sets of a schema that have some keys, with the elements that they need.
class Extract
{
public:
    Extract(Schema::Tables const & schema, std::set<KLV::Key> const & keys) : schema_(schema)
    {
        for (Schema::SetRow const & set : schema.sets)
            if (keys.count(essentialPartOf(KLV::Key(set.key.bytes))) != 0)
                add(set);
    }

    Schema::Tables tables() const
    {
        Schema::Tables extract = schema_;
        extract.elements = {elements_.data(), elements_.size()};
        extract.sets = {sets_.data(), sets_.size()};
        return extract;
    }

private:
    void add(Schema::SetRow set)
    {
        std::vector<Schema::AttributeRow> attributes(set.attributes.begin(), set.attributes.end());
        for (Schema::AttributeRow & attribute : attributes)
            attribute.element = placeOf(attribute.element);
        set.attributes = {attributes.data(), attributes.size()};
        sets_.push_back(set);
        attributes_.push_back(std::move(attributes)); // its rows stay where they are
    }

    UInt32 placeOf(UInt32 element)
    {
        auto const [place, isNew] = places_.emplace(element, static_cast<UInt32>(elements_.size()));
        if (isNew)
            elements_.push_back(schema_.elements.first[element]);
        return place->second;
    }

    Schema::Tables const & schema_;
    std::vector<Schema::ElementRow> elements_;
    std::vector<Schema::SetRow> sets_;
    std::vector<std::vector<Schema::AttributeRow>> attributes_; // of the sets
    std::map<UInt32, UInt32> places_;                           // of the elements, by those in the schema
};

}

Templates::SharedPtr<MetaMetadata::Dictionary> dictionaryFor(DataIO::RandomAccessDataSource & file, UInt64 size,
                                                             Schema::Tables const & tables)
{
    Extract const extract(tables, setKeysIn(file, size));
    return Schema::makeDictionary(extract.tables());
}

}}
