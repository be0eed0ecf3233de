#include "Metadata/PartitionDictionary.h"

#include "Exceptions/InvalidLocalTag.h"
#include "Exceptions/LocalTagNotFound.h"
#include "Exceptions/NotFoundInPrimer.h"
#include "Exceptions/UniversalLabelCollision.h"
#include "MetaMetadata/Dictionary.h"
#include "Packs/PrimerPack.h"
#include "support/Bytes.h"
#include "support/Failure.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

namespace Vantry { namespace Metadata { namespace {

Types::UniversalLabel label(unsigned int number)
{
    Tests::Bytes bytes = Tests::hex("06 0E 2B 34 01 01 01 01 01 01 15 02 00 00 00 00");
    bytes[14] = static_cast<unsigned char>(number >> 8);
    bytes[15] = static_cast<unsigned char>(number);
    return Types::UniversalLabel(bytes.data());
}

Types::LocalTag tag(unsigned int number)
{
    unsigned char const bytes[] = {static_cast<unsigned char>(number >> 8), static_cast<unsigned char>(number)};
    return Types::LocalTag(bytes);
}

using Entries = std::vector<std::pair<unsigned int, unsigned int>>;

// A partition whose dictionary and primer hold these tags with these labels.
PartitionDictionary * make(Entries const & dictionary, Entries const & primer)
{
    Templates::SharedPtr<MetaMetadata::Dictionary> schema(new MetaMetadata::Dictionary);
    for (auto const & entry : dictionary)
        schema->add(tag(entry.first), label(entry.second));
    Templates::auto_ptr<Packs::PrimerPack> pack(new Packs::PrimerPack);
    for (auto const & entry : primer)
        pack->add(tag(entry.first), label(entry.second));
    return new PartitionDictionary(schema, pack);
}

TEST(PartitionDictionary, ResolvesTags)
{
    std::unique_ptr<PartitionDictionary> const dictionary(make({{0x3C0A, 1}, {0x3C0B, 2}, {0x00F0, 3}, {0x4444, 4}},
                                                               {{0x3C0A, 1}, {0x3C0B, 9}, {0x8000, 5}, {0x0001, 6}}));

    EXPECT_EQ(dictionary->find(tag(0x3C0A), true), label(1));
    EXPECT_EQ(dictionary->find(tag(0x8000), true), label(5));
    // Tags below 01.00 are the file's own, though a lenient look tries the
    // dictionary too.
    EXPECT_EQ(dictionary->find(tag(0x0001), true), label(6));
    EXPECT_EQ(dictionary->find(tag(0x00F0), false), label(3));
    // What the primer says counts unless the look is strict.
    EXPECT_EQ(dictionary->find(tag(0x3C0B), false), label(9));
    EXPECT_EQ(dictionary->find(tag(0x4444), false), label(4));
    EXPECT_EQ(dictionary->find(label(5)), tag(0x8000));

    EXPECT_FAILURE(InvalidLocalTag, "Invalid Local Tag '00.00'", dictionary->find(tag(0), true));
    EXPECT_FAILURE(NotFoundInPrimer, "Could not resolve local tag 44.44 to Universal Label using primer.",
                   dictionary->find(tag(0x4444), true));
    EXPECT_FAILURE(LocalTagNotFound, "Dictionary does not contain static Local Tag 55.55",
                   dictionary->find(tag(0x5555), false));
    EXPECT_FAILURE(UniversalLabelCollision, "Primer redefines a static assigned tag!",
                   dictionary->find(tag(0x3C0B), true));
    EXPECT_FAILURE(NotFoundInPrimer,
                   "Could not resolve local tag 81.00 to Universal Label using either primer and the dictionary.",
                   dictionary->find(tag(0x8100), false));
    EXPECT_FAILURE(LocalTagNotFound, "No LocalTag defined for this UniversalLabel", dictionary->find(label(77)));
}

TEST(PartitionDictionary, GivesTagsOut)
{
    std::unique_ptr<PartitionDictionary> const dictionary(
        make({{0x3C0A, 1}, {0x3C0B, 2}, {0x8002, 3}}, {{0x8000, 5}, {0x3C0B, 9}}));
    dictionary->reserve(tag(0x8003));

    EXPECT_EQ(dictionary->findOrGenerate(label(1)), tag(0x3C0A));
    EXPECT_EQ(dictionary->findOrGenerate(label(5)), tag(0x8000));
    // The primer uses this label's static tag for another one.
    EXPECT_EQ(dictionary->findOrGenerate(label(2)), tag(0x8001));
    // 80.02 means something to the dictionary, 80.03 to an unknown element.
    EXPECT_EQ(dictionary->findOrGenerate(label(7)), tag(0x8004));
    EXPECT_EQ(dictionary->findOrGenerate(label(7)), tag(0x8004));
    EXPECT_EQ(*dictionary->primer().find(tag(0x8004)), label(7));
}

TEST(PartitionDictionary, RunsOutOfTags)
{
    std::unique_ptr<PartitionDictionary> const dictionary(make({}, {}));
    for (unsigned int i = 0x8000; i <= 0xFFFF; ++i)
        dictionary->findOrGenerate(label(i));
    EXPECT_EQ(dictionary->find(label(0xFFFF)), tag(0xFFFF));
    EXPECT_FAILURE(InvalidLocalTag, "All LocalTags are used", dictionary->findOrGenerate(label(1)));
}

}}}
