#include "Metadata/Listeners/GenerationUIDWriterListener.h"
#include "Metadata/Listeners/LastModifiedDateUpdaterListener.h"

#include "Metadata/ReferenceElement.h"
#include "Metadata/Structural/StructuralMetadataULs.h"
#include "Types/StrongReference.h"
#include "support/BytesPacket.h"
#include "support/Elements.h"
#include "support/Failure.h"
#include "support/StructuralMetadata.h"

namespace Vantry { namespace Metadata { namespace {

using namespace Tests;
using namespace Structural;

// A Preface with two packages, the first of which has a track.
class Commit : public testing::Test
{
protected:
    Commit()
    {
        preface.contentStorage(&storage);
        storage.appendPackage(&material);
        storage.appendPackage(&source);
        material.addTrack(0, &track);
    }

    template <class Listener>
    Templates::SharedPtr<Listener> listen()
    {
        Templates::SharedPtr<Listener> const listener(new Listener);
        metadata->addMetadataListener(listener, false);
        return listener;
    }

    // A set of which a listener hears, and that never comes to be.
    void loadDamaged()
    {
        BytesPacket packet(hex("06 0E 2B 34 02 53 01 01 0D 01 01 01 01 01 3B 00 83 00 00 17"
                               "3C 0A 00 10 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F 10 3C 0A 00"));
        EXPECT_THROW(metadata->load(*packet), Exceptions::InvalidLength);
    }

    // A set that comes and goes.
    void makeInVain()
    {
        auto & set = metadata.make<SourcePackage>();
        metadata->removeMetadataSet(Types::UUID(*set.instanceUID()));
    }

    void changeTrack()
    {
        auto const number = sample<Types::UInt32>(static_cast<unsigned char>(++changes));
        track.trackNumber(&number);
    }

    StructuralMetadata metadata{lenientDictionary()};
    Preface & preface = metadata.make<Preface>();
    ContentStorage & storage = metadata.make<ContentStorage>();
    MaterialPackage & material = metadata.make<MaterialPackage>();
    SourcePackage & source = metadata.make<SourcePackage>();
    TimelineTrack & track = metadata.make<TimelineTrack>();
    unsigned int changes = 0;
};

TEST_F(Commit, OfTheGenerationStampsWhatWasCreatedOrChanged)
{
    auto const listener = listen<Listeners::GenerationUIDWriterListener>();
    loadDamaged();
    makeInVain();
    listener->commit();
    EXPECT_EQ(preface.identificationsCount(), 0U);

    changeTrack();
    auto & added = metadata.make<SourcePackage>();
    listener->commit();
    ASSERT_EQ(preface.identificationsCount(), 1U);
    Identification * const first = preface.identification(0);
    EXPECT_EQ(preface.generation(), first);
    EXPECT_EQ(track.generation(), first);
    EXPECT_EQ(added.generation(), first);
    EXPECT_EQ(material.generation(), nullptr);

    // The same one serves all commits of a run; its own changes don't count.
    track.generation(nullptr);
    listener->commit();
    EXPECT_EQ(track.generation(), first);
    listener->commit();
    changeTrack();
    listener->reset();
    listener->commit();
    ASSERT_EQ(preface.identificationsCount(), 2U);
    EXPECT_EQ(track.generation(), preface.identification(1));
    EXPECT_EQ(added.generation(), first);

    // One that is given, until it goes.
    listener->setIdentification(first);
    changeTrack();
    listener->commit();
    EXPECT_EQ(preface.identificationsCount(), 2U);
    EXPECT_EQ(track.generation(), first);

    preface.removeIdentification(0);
    metadata->removeMetadataSet(Types::UUID(*first->instanceUID()));
    changeTrack();
    listener->commit();
    ASSERT_EQ(preface.identificationsCount(), 2U);
    EXPECT_EQ(track.generation(), preface.identification(1));
}

TEST_F(Commit, OfTheGenerationNeedsAPreface)
{
    auto const listener = listen<Listeners::GenerationUIDWriterListener>();
    metadata->removeMetadataSet(Types::UUID(*preface.instanceUID()));
    changeTrack();
    unsigned int const size = metadata->size();
    EXPECT_FAILURE(NotFound, "Didn't find MetadataSet with specified key.", listener->commit());
    EXPECT_EQ(metadata->size(), size);
}

TEST_F(Commit, OfTheDateReachesTheTop)
{
    auto const listener = listen<Listeners::LastModifiedDateUpdaterListener>();
    loadDamaged();
    makeInVain();
    listener->commit();
    EXPECT_EQ(preface.lastModifiedDate(), nullptr);

    changeTrack();
    listener->commit();
    ASSERT_NE(preface.lastModifiedDate(), nullptr);
    ASSERT_NE(material.packageModifiedDate(), nullptr);
    EXPECT_EQ(*preface.lastModifiedDate(), *material.packageModifiedDate());
    EXPECT_EQ(source.packageModifiedDate(), nullptr);
}

// The listener outlives a partition that it served.
TEST_F(Commit, OfTheDateServesOnePartitionAfterAnother)
{
    auto const listener = listen<Listeners::LastModifiedDateUpdaterListener>();
    {
        StructuralMetadata other;
        other->addMetadataListener(listener, false);
        auto const & package = other.make<MaterialPackage>();
        changeTrack();
        listener->commit();
        EXPECT_NE(package.packageModifiedDate(), nullptr);
        EXPECT_NE(preface.lastModifiedDate(), nullptr);
    }
    preface.lastModifiedDate(nullptr);
    listener->commit();
    EXPECT_NE(preface.lastModifiedDate(), nullptr);
}

// Sets that own each other are all dated, once.
TEST_F(Commit, OfTheDateEndsInACircle)
{
    auto const listener = listen<Listeners::LastModifiedDateUpdaterListener>();
    source.addTrack(0, &track);
    elementOf<ReferenceElement>(track, StructuralMetadataULs::sequence())
        .setUnverifiedReference(
            Templates::auto_ptr<Types::Reference>(new Types::StrongReference(*storage.instanceUID())));
    listener->commit();
    EXPECT_NE(source.packageModifiedDate(), nullptr);
    EXPECT_NE(material.packageModifiedDate(), nullptr);
}

}}}
