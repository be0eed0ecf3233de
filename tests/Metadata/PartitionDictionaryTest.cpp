#include "Metadata/PartitionDictionary.h"

#include "support/Failure.h"
#include "support/Schema.h"

#include <utility>

namespace Vantry { namespace Metadata { namespace {

using Tests::labelOf;
using Tests::tagOf;
using Entries = std::vector<std::pair<unsigned int, unsigned char>>;

// A partition whose dictionary and primer hold these tags with these labels.
PartitionDictionary * make(Entries const & dictionary, Entries const & primer)
{
    Templates::SharedPtr<MetaMetadata::Dictionary> schema(new MetaMetadata::Dictionary);
    for (auto const & entry : dictionary)
        schema->add(tagOf(entry.first), labelOf(entry.second));
    Templates::auto_ptr<Packs::PrimerPack> pack(new Packs::PrimerPack);
    for (auto const & entry : primer)
        pack->add(tagOf(entry.first), labelOf(entry.second));
    return new PartitionDictionary(schema, pack);
}

TEST(PartitionDictionary, ResolvesTags)
{
    std::unique_ptr<PartitionDictionary> const dictionary(make({{0x3C0A, 1}, {0x3C0B, 2}, {0x00F0, 3}, {0x4444, 4}},
                                                               {{0x3C0A, 1}, {0x3C0B, 9}, {0x8000, 5}, {0x0001, 6}}));

    EXPECT_EQ(dictionary->find(tagOf(0x3C0A), true), labelOf(1));
    EXPECT_EQ(dictionary->find(tagOf(0x8000), true), labelOf(5));
    // Tags below 01.00 are the file's own, though a lenient look tries the
    // dictionary too.
    EXPECT_EQ(dictionary->find(tagOf(0x0001), true), labelOf(6));
    EXPECT_EQ(dictionary->find(tagOf(0x00F0), false), labelOf(3));
    // What the primer says counts unless the look is strict.
    EXPECT_EQ(dictionary->find(tagOf(0x3C0B), false), labelOf(9));
    EXPECT_EQ(dictionary->find(tagOf(0x4444), false), labelOf(4));
    EXPECT_EQ(dictionary->find(labelOf(5)), tagOf(0x8000));

    EXPECT_FAILURE(InvalidLocalTag, "Invalid Local Tag '00.00'", dictionary->find(tagOf(0), true));
    EXPECT_FAILURE(NotFoundInPrimer, "Could not resolve local tag 44.44 to Universal Label using primer.",
                   dictionary->find(tagOf(0x4444), true));
    EXPECT_FAILURE(LocalTagNotFound, "Dictionary does not contain static Local Tag 55.55",
                   dictionary->find(tagOf(0x5555), false));
    EXPECT_FAILURE(UniversalLabelCollision, "Primer redefines a static assigned tag!",
                   dictionary->find(tagOf(0x3C0B), true));
    EXPECT_FAILURE(NotFoundInPrimer,
                   "Could not resolve local tag 81.00 to Universal Label using either primer and the dictionary.",
                   dictionary->find(tagOf(0x8100), false));
    EXPECT_FAILURE(LocalTagNotFound, "No LocalTag defined for this UniversalLabel", dictionary->find(labelOf(77)));
}

TEST(PartitionDictionary, GivesTagsOut)
{
    std::unique_ptr<PartitionDictionary> const dictionary(
        make({{0x3C0A, 1}, {0x3C0B, 2}, {0x8002, 3}}, {{0x8000, 5}, {0x3C0B, 9}}));
    dictionary->reserve(tagOf(0x8003));

    EXPECT_EQ(dictionary->findOrGenerate(labelOf(1)), tagOf(0x3C0A));
    EXPECT_EQ(dictionary->findOrGenerate(labelOf(5)), tagOf(0x8000));
    // The primer uses this label's static tag for another one.
    EXPECT_EQ(dictionary->findOrGenerate(labelOf(2)), tagOf(0x8001));
    // 80.02 means something to the dictionary, 80.03 to an unknown element.
    EXPECT_EQ(dictionary->findOrGenerate(labelOf(7)), tagOf(0x8004));
    EXPECT_EQ(dictionary->findOrGenerate(labelOf(7)), tagOf(0x8004));
    EXPECT_EQ(*dictionary->primer().find(tagOf(0x8004)), labelOf(7));
}

}}}
