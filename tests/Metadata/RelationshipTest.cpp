#include "Metadata/Listeners/MetadataSetRelationshipManager.h"

#include "Types/Array.h"
#include "support/Failure.h"
#include "support/Partition.h"

#include <gmock/gmock.h>

namespace Vantry { namespace Metadata { namespace {

using namespace Tests;
using testing::ElementsAre;

// Shows what the register holds.
class Manager : public Listeners::MetadataSetRelationshipManager
{
public:
    using MetadataSetRelationshipManager::MetadataSetRelationshipManager;

    // Identifiers and references.
    std::pair<std::size_t, std::size_t> sizes() { return {uuid2ReferencesMap().size(), references2UUIDMap().size()}; }
};

class Relationships : public testing::Test
{
protected:
    Relationships() : manager(new Manager(&partition.metadata))
    {
        for (unsigned int i = 0; i < 8; ++i)
            partition.node(i);
        partition.metadata.addMetadataListener(manager, true);
    }

    MetadataSet & set(unsigned int number) const { return *partition.find(number); }
    bool isThere(unsigned int number) const { return partition.find(number) != nullptr; }

    unsigned int strongRefs(unsigned int number) const
    {
        Manager::Elements elements;
        return manager->metadataSetStrongRefs(&set(number), elements);
    }

    bool remove(unsigned int number) { return partition.metadata.removeMetadataSet(numberedUUID(number)); }

    Partition partition;
    Templates::SharedPtr<Manager> manager;
};

TEST_F(Relationships, AreFollowed)
{
    EXPECT_EQ(manager->parentSet(&set(3)), nullptr);
    Partition::ownAll(set(1), {2, 3});
    Partition::know(set(4), 3);
    Partition::know(set(5), 6);
    EXPECT_EQ(manager->parentSet(&set(3)), &set(1));
    EXPECT_EQ(manager->parentSet(&set(6)), nullptr);

    Manager::Elements elements;
    EXPECT_EQ(manager->metadataSetStrongRefs(&set(3), elements), 1U);
    EXPECT_EQ(manager->metadataSetWeakRefs(&set(3), elements), 2U);
    EXPECT_EQ(elements.count(&set(1).find(labelOf(CHILDREN))), 1U);
    EXPECT_EQ(elements.count(&set(4).find(labelOf(PEER))), 1U);
    EXPECT_FALSE(manager->canDeleteMetadataSet(&set(6)));
    EXPECT_TRUE(manager->canDeleteMetadataSet(&set(1)));

    // One value in place of another, an item less.
    Partition::know(set(5), 7);
    EXPECT_TRUE(manager->canDeleteMetadataSet(&set(6)));
    EXPECT_FALSE(manager->canDeleteMetadataSet(&set(7)));
    auto & children = elementOf<ArrayReferenceElement>(set(1), CHILDREN);
    children.remove(1);
    EXPECT_EQ(strongRefs(3), 0U);
    EXPECT_EQ(manager->sizes(), std::make_pair(std::size_t(3), std::size_t(3)));
}

TEST_F(Relationships, KeepWhatIsReferredTo)
{
    Partition::know(set(1), 2);
    EXPECT_FAILURE(OperationNotAllowed, "Cannot removed this MetadataSet because is referenced by other Metadata Set",
                   remove(2));
    ASSERT_TRUE(isThere(2));
    EXPECT_TRUE(remove(3));

    manager->enforceReferentialIntegrity(false);
    EXPECT_TRUE(remove(2));
    EXPECT_FALSE(elementOf<ReferenceElement>(set(1), PEER).empty());
    EXPECT_EQ(manager->sizes(), std::make_pair(std::size_t(1), std::size_t(1)));
    EXPECT_TRUE(remove(1));
    EXPECT_EQ(manager->sizes(), std::make_pair(std::size_t(0), std::size_t(0)));
}

// 1 owns 2 and 3, which both own 4; 2 owns 5, which 6 owns too.
TEST_F(Relationships, GoWithTheirOwner)
{
    Partition::ownAll(set(0), {7, 1});
    Partition::know(set(7), 1);
    Partition::ownAll(set(1), {2, 3, 99});
    Partition::ownAll(set(2), {4, 5});
    Partition::own(set(3), 4);
    Partition::own(set(6), 5);

    EXPECT_FALSE(manager->cascadeDelete(nullptr));
    EXPECT_TRUE(manager->cascadeDelete(&set(1)));
    for (unsigned int gone : {1, 2, 3, 4})
        EXPECT_FALSE(isThere(gone)) << gone;
    for (unsigned int left : {0, 5, 6, 7})
        EXPECT_TRUE(isThere(left)) << left;
    EXPECT_EQ(elementOf<ArrayReferenceElement>(set(0), CHILDREN).size(), 1U);
    EXPECT_TRUE(elementOf<ReferenceElement>(set(7), PEER).empty());
    EXPECT_EQ(manager->parentSet(&set(5)), &set(6));

    // The rules for other removals are as before.
    EXPECT_THROW(remove(5), Exceptions::OperationNotAllowed);
}

TEST_F(Relationships, InACircleAreRefused)
{
    Partition::own(set(1), 2);
    Partition::own(set(2), 3);
    for (unsigned int target : {3, 1}) // to the set itself, and to the first
    {
        Partition::own(set(3), target);
        std::string const text = "Circular reference in MXF file! InstanceUID: "
                                 "ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.ee.00.00.00.0" +
                                 std::to_string(target);
        EXPECT_FAILURE(InvalidFormat, text.c_str(), manager->cascadeDelete(&set(1)));
        EXPECT_TRUE(isThere(1) && isThere(2) && isThere(3));
    }
}

// The schema wants two items: the set to which one refers can't go.
TEST(RelationshipLimits, KeepASetAndItsReferences)
{
    Schema schema;
    auto const label = labelOf(0x77);
    schema.add(label, 0x0177, Types::Identifiers::Array, Types::Identifiers::StrongReference, Schema::Limits(1, 9));
    schema.add(nodeKey(), {{MetadataULs::instanceUID()}, {label}, {labelOf(CHILD)}});
    Partition partition(schema);
    Templates::SharedPtr<Manager> const manager(new Manager(&partition.metadata));
    partition.metadata.addMetadataListener(manager, false);

    Templates::auto_ptr<Types::Array> row(new Types::Array(16));
    row->append(Templates::auto_ptr<Types::SimpleDataType>(referenceTo<Types::StrongReference>(2)));
    elementOf<ArrayReferenceElement>(partition.node(1), label).set(row);
    Partition::own(partition.node(2), 3);
    partition.node(3);

    EXPECT_THROW(manager->cascadeDelete(partition.find(2)), Exceptions::InvalidChange);
    EXPECT_EQ(manager->parentSet(partition.find(3)), partition.find(2));
    EXPECT_EQ(manager->parentSet(partition.find(2)), partition.find(1));
    EXPECT_THROW(partition.metadata.removeMetadataSet(numberedUUID(3)), Exceptions::OperationNotAllowed);
}

TEST(RelationshipDepth, DoesNotMatter)
{
    Partition partition;
    Templates::SharedPtr<Manager> const manager(new Manager(&partition.metadata));
    partition.metadata.addMetadataListener(manager, false);
    partition.addChain(100000);
    EXPECT_TRUE(manager->cascadeDelete(partition.find(1)));
    EXPECT_EQ(partition.metadata.size(), 1U);
    EXPECT_EQ(manager->sizes(), std::make_pair(std::size_t(0), std::size_t(0)));
}

}}}
