#include "FileDictionary.h"

#include "DataIO/RandomAccessDataSource.h"
#include "FileRegion.h"
#include "KLV/Packet.h"
#include "PacketWalk.h"
#include "Schema/Dictionaries.h"

#include <algorithm>
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

}

Templates::SharedPtr<MetaMetadata::Dictionary> dictionaryFor(DataIO::RandomAccessDataSource & file, UInt64 size,
                                                             Schema::Tables const & tables)
{
    std::set<KLV::Key> const keys = setKeysIn(file, size);
    std::vector<Schema::SetRow> sets;
    for (Schema::SetRow const & set : tables.sets)
        if (keys.count(essentialPartOf(KLV::Key(set.key.bytes))) != 0)
            sets.push_back(set);
    Schema::Tables extract = tables;
    extract.sets = {sets.data(), sets.size()};
    return Schema::makeDictionary(extract);
}

}}
