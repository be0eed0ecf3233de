// Loads the metadata sets of real files by the schema that applications have,
// and expects to write all that the files hold.

#include "Metadata/MetadataSetFactory.h"

#include "Exceptions/NotEnoughData.h"
#include "KLV/KeyPredicates.h"
#include "KLV/Reader.h"
#include "MetaMetadata/Dictionary.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/PartitionDictionary.h"
#include "Packs/PrimerPack.h"
#include "Schema/Dictionaries.h"
#include "support/BytesPacket.h"
#include "support/BytesSink.h"
#include "support/FileBytes.h"
#include "support/Samples.h"

#include <memory>
#include <string>

namespace Vantry { namespace Metadata { namespace {

using namespace Tests;

std::ptrdiff_t const TAG_AND_LENGTH = 4;

// What a set holds in a fixed order, under labels where the primer has them:
// a primer may have several tags for one.
std::vector<Bytes> content(Bytes const & value, Packs::PrimerPack const & primer)
{
    std::vector<Bytes> triplets;
    for (auto at = value.begin(); value.end() - at >= TAG_AND_LENGTH;)
    {
        auto const end = at + std::min<std::ptrdiff_t>(value.end() - at, TAG_AND_LENGTH + (at[2] << 8 | at[3]));
        Types::UniversalLabel const * const label = primer.find(Types::LocalTag(&*at));
        triplets.emplace_back(label != nullptr ? Bytes(label->rawBuffer(), label->rawBuffer() + 16)
                                               : Bytes(at, at + 2));
        triplets.back().insert(triplets.back().end(), at + 2, end);
        at = end;
    }
    std::sort(triplets.begin(), triplets.end());
    return triplets;
}

Bytes valueOf(Bytes const & packet, UInt64 valueSize)
{
    return Bytes(packet.end() - static_cast<std::ptrdiff_t>(valueSize), packet.end());
}

// A partition of a file: its sets are known by its primer.
class Partition
{
public:
    explicit Partition(KLV::Packet & primer) :
        dictionary_(::Vantry::Schema::builtInDictionary(),
                    Templates::auto_ptr<Packs::PrimerPack>(new Packs::PrimerPack(primer)))
    {
    }

    void check(Bytes const & packetBytes)
    {
        BytesPacket packet(packetBytes);
        KLV::Key const key = (*packet).key();
        UInt64 const valueSize = (*packet).length();
        MetaMetadata::MetaMetadataSet const * const schema = dictionary_.dictionary()->find(key);
        std::unique_ptr<MetadataSet> const set(MetadataSetFactory::instance().create(key, schema, nullptr));
        set->load(*packet, dictionary_, true);

        BytesSink sink;
        set->serialize(sink, dictionary_, true);
        EXPECT_EQ(content(valueOf(sink.bytes(), sink.bytes().size() - 16 - set->berLength()), dictionary_.primer()),
                  content(valueOf(packetBytes, valueSize), dictionary_.primer()))
            << key;
    }

private:
    PartitionDictionary dictionary_;
};

// Checks the sets of a file and returns how many there are.
unsigned checkFile(Bytes const & file)
{
    BytesSource source(file);
    KLV::Reader reader(source);
    std::unique_ptr<Partition> partition;
    unsigned sets = 0;
    try
    {
        for (UInt64 skipped = 0;;)
        {
            auto const packet = reader.nextKLV(skipped, 65536);
            if (Packs::isPrimerPack(packet->key()))
                partition = std::make_unique<Partition>(*packet);
            if (!KLV::isMetadataSet(packet->key()) || !KLV::isMXFDefaultLocalSet(packet->key()) || !partition)
                continue;

            auto const begin = file.begin() + static_cast<std::ptrdiff_t>(packet->keyAbsoluteOffset());
            partition->check(Bytes(begin, begin + static_cast<std::ptrdiff_t>(packet->klvLength())));
            ++sets;
        }
    }
    catch (Exceptions::NotEnoughData const &)
    {
        // The end of the file, or of what there is of it.
    }
    return sets;
}

TEST(RealSets, AreWrittenAsTheyWere)
{
    VANTRY_NEEDS_SAMPLES();
    unsigned sets = 0;
    for (auto const & path : samples())
    {
        SCOPED_TRACE(path.filename());
        sets += checkFile(readFile(path));
    }
    EXPECT_GT(sets, 0u);
}

}}}
