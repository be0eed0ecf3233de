#include "Metadata/Listeners/BaseMetadataIndexListener.h"

#include "Types/UInt32.h"
#include "Types/Unknown.h"
#include "support/Partition.h"

#include <gmock/gmock.h>

#include <random>

namespace Vantry { namespace Metadata { namespace {

using namespace Tests;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Number = Types::UInt32;

// An index of NUMBER, TEXT and CHILDREN.
class NumberIndex : public Listeners::BaseMetadataIndexListener
{
public:
    bool isIndexed(Types::UniversalLabel const & label) const override
    {
        return label == labelOf(NUMBER) || label == labelOf(TEXT) || label == labelOf(CHILDREN);
    }
};

class MetadataIndex : public testing::Test
{
protected:
    MetadataIndex() : first(partition.node(1)), second(partition.node(2))
    {
        partition.metadata.setMetadataIndexListener(
            Templates::SharedPtr<Listeners::MetadataIndexListener>(new NumberIndex));
    }

    static void set(MetadataSet & set, SchemaAttribute attribute, Types::SimpleDataType const & value)
    {
        elementOf<SimpleElement>(set, attribute).set(value.clone(), false);
    }

    std::vector<unsigned int> find(SchemaAttribute attribute, Types::SimpleDataType const & value) const
    {
        return numbersOf(partition.metadata.find(labelOf(attribute), value));
    }

    Partition partition;
    MetadataSet & first;
    MetadataSet & second;
};

TEST_F(MetadataIndex, FindsByLabelAndBytes)
{
    set(second, NUMBER, Number(0x41424344));
    set(first, NUMBER, Number(0x41424344));
    EXPECT_THAT(find(NUMBER, Number(0x41424344)), ElementsAre(2, 1));
    EXPECT_THAT(find(NUMBER, Types::Unknown(hex("41 42 43 44").data(), 4)), ElementsAre(2, 1));
    EXPECT_THAT(find(TEXT, Number(0x41424344)), IsEmpty());
    EXPECT_THAT(find(PEER, numberedUUID(1)), IsEmpty());
}

// Sets come and go by the hundred, some with a value of many, some twice with
// the same one. A plain list says what must be found.
TEST_F(MetadataIndex, KeepsOrderAsItGrowsAndShrinks)
{
    unsigned int const VALUES = 20;
    NumberIndex index;
    Element & element = first.find(labelOf(NUMBER));
    std::vector<Number> numbers;
    for (unsigned int i = 0; i < VALUES; ++i)
        numbers.emplace_back(i);
    std::vector<std::pair<unsigned int, MetadataSet *>> list;
    std::mt19937 random(1);
    for (unsigned int step = 0; step < 3000; ++step)
    {
        MetadataSet & set = random() % 2 != 0 ? first : second;
        // Low numbers are frequent. Up to the middle, more come than go.
        unsigned int const value = random() % (1 + random() % VALUES);
        bool const comes = random() % 8 != 0 && step < 2000;
        if (comes)
        {
            index.addedElement(set, element.metaElement(), element, numbers[value]);
            list.emplace_back(value, &set);
        }
        else
        {
            index.removedElement(set, element.metaElement(), element, numbers[value]);
            list.erase(std::remove(list.begin(), list.end(), std::make_pair(value, &set)), list.end());
        }
        std::vector<MetadataSet *> expected;
        for (auto const & entry : list)
            if (entry.first == value)
                expected.push_back(entry.second);
        ASSERT_THAT(index.find(labelOf(NUMBER), numbers[value]), ElementsAreArray(expected)) << step;
    }
}

TEST_F(MetadataIndex, OfAPartitionCanBeReplaced)
{
    // No index of identifiers: a set is still found to be removed.
    EXPECT_THAT(partition.metadata.find(MetadataULs::instanceUID(), numberedUUID(1)), IsEmpty());
    EXPECT_TRUE(partition.metadata.removeMetadataSet(numberedUUID(1)));

    partition.metadata.setMetadataIndexListener(Templates::SharedPtr<Listeners::MetadataIndexListener>());
    EXPECT_EQ(partition.find(2), &second);
}

}}}
