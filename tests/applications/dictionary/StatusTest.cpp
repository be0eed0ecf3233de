// The status of an OP1a file's metadata that is whole by the built-in schema,
// and what it is when attributes are taken away.

#include "Metadata/ArrayElement.h"
#include "Metadata/ArrayReferenceElement.h"
#include "Metadata/BatchElement.h"
#include "Metadata/BatchReferenceElement.h"
#include "Metadata/PartitionMetadataUtils.h"
#include "Metadata/ReferenceElement.h"
#include "Metadata/SimpleElement.h"
#include "Metadata/Structural/StructuralMetadataULs.h"
#include "Metadata/Visitors/NonConstElementVisitor.h"
#include "OPBuilders/GenericOPBuilder.h"
#include "support/BuiltMetadata.h"
#include "support/HeaderMetadata.h"

#include <gtest/gtest.h>

#include <functional>

namespace Vantry { namespace Tests { namespace {

using namespace Metadata;
using namespace Metadata::Structural;
using Status = Packs::PartitionPack::PartitionStatus;

Types::Timestamp const NOW = sample<Types::Timestamp>();
Types::Rational const RATE(25, 1);

// A material package that plays picture and sound of a source package.
class Programme : public BuiltMetadata<OPBuilders::GenericOPBuilder>
{
public:
    Programme() : BuiltMetadata(HeaderMetadata::dictionary(), nullptr, false, false)
    {
        SourcePackage & source = addSource("ps", 250);
        source.packageCreationDate(&NOW);
        source.packageModifiedDate(&NOW);
        source.descriptor(&descriptorsWith(*source.descriptor()));

        Types::UInt32 const bodySID(1);
        auto & container = make<EssenceContainerData>(StructuralMetadataKeys::essenceContainerData());
        container.linkedPackage(&source);
        container.bodySID(&bodySID);
        storage.appendEssenceContainerData(&container);
        addMaterial("A1 A2");
        builder.update();
    }

    Status status(bool closable = true) { return verifyPartitionMetadataStatus(metadata, closable); }

private:
    MultipleDescriptor & descriptorsWith(GenericDescriptor & soundDescriptor)
    {
        using namespace StructuralMetadataKeys;
        auto & all = make<MultipleDescriptor>(multipleDescriptor());
        auto & image = make<CDCIEssenceDescriptor>(cdciEssenceDescriptor());
        auto & sound = dynamic_cast<WAVEAudioEssenceDescriptor &>(soundDescriptor);
        fillFile(all);
        fillFile(image);
        fillFile(sound);
        fillPicture(image);
        fillSound(sound);
        all.addSubDescriptor(0, &image);
        all.addSubDescriptor(1, &sound);
        return all;
    }

    static void fillFile(FileDescriptor & descriptor)
    {
        auto const label = sample<Types::UniversalLabel>();
        descriptor.sampleRate(&RATE);
        descriptor.essenceContainer(&label);
    }

    static void fillPicture(CDCIEssenceDescriptor & descriptor)
    {
        Types::UInt8 const layout(0);
        Types::UInt32 const number(8);
        Types::Rational const aspect(16, 9);
        descriptor.frameLayout(&layout);
        descriptor.storedWidth(&number);
        descriptor.storedHeight(&number);
        descriptor.aspectRatio(&aspect);
        descriptor.addVideoLineMap(0, Types::Int32(1));
        descriptor.addVideoLineMap(1, Types::Int32(0));
        descriptor.componentDepth(&number);
        descriptor.horizontalSubsampling(&number);
    }

    static void fillSound(WAVEAudioEssenceDescriptor & descriptor)
    {
        Types::UInt16 const align(4);
        Types::UInt32 const number(8);
        Types::Rational const rate(48000, 1);
        descriptor.audioSamplingRate(&rate);
        descriptor.channelCount(&number);
        descriptor.quantizationBits(&number);
        descriptor.blockAlign(&align);
        descriptor.avgBps(&number);
    }
};

// Empties an element, whatever the schema says.
class TakeAway final : public Metadata::Visitors::NonConstElementVisitor
{
public:
    using NoCollection = Templates::auto_ptr<Types::Collection>;

    void visit(SimpleElement & element) override { element.set(Templates::auto_ptr<Types::SimpleDataType>(), true); }
    void visit(ReferenceElement & element) override { element.set(static_cast<MetadataSet const *>(nullptr)); }
    void visit(ArrayElement & element) override { element.set(NoCollection()); }
    void visit(BatchElement & element) override { element.set(NoCollection()); }
    void visit(ArrayReferenceElement & element) override { element.set(NoCollection()); }
    void visit(BatchReferenceElement & element) override { element.set(NoCollection()); }
};

// Empties an attribute in all sets that have it.
void takeAway(PartitionMetadata & metadata, Types::UniversalLabel const & label)
{
    TakeAway visitor;
    for (auto const & entry : metadata)
        if (Element * const element = entry.second->findElement(label))
            element->accept(visitor);
}

TEST(Status, FollowsWhatIsThere)
{
    using namespace StructuralMetadataULs;
    std::tuple<char const *, std::vector<Types::UniversalLabel>, Status> const CASES[] = {
        {"whole", {}, Status::CLOSED_COMPLETE},
        {"required value", {operationalPattern()}, Status::OPEN_COMPLETE},
        {"required reference", {sequence()}, Status::OPEN_COMPLETE},
        {"required array", {tracks()}, Status::OPEN_COMPLETE},
        {"required batch", {dmSchemes()}, Status::OPEN_COMPLETE},
        {"required of encoders", {identificationList()}, Status::OPEN_COMPLETE},
        {"best effort", {duration()}, Status::CLOSED_INCOMPLETE},
        {"best effort of descriptors", {storedWidth()}, Status::CLOSED_INCOMPLETE},
        {"best effort array", {videoLineMap()}, Status::CLOSED_INCOMPLETE},
        {"both", {bodySID(), channelCount()}, Status::OPEN_INCOMPLETE},
        {"required by decoders", {essenceContainer()}, Status::CLOSED_COMPLETE},
        {"required in most clips", {sourcePackageID(), sourceTrackID()}, Status::CLOSED_COMPLETE},
        {"optional", {primaryPackage(), generationUID()}, Status::CLOSED_COMPLETE},
    };
    for (auto const & [name, gone, status] : CASES)
    {
        SCOPED_TRACE(name);
        Programme programme;
        for (Types::UniversalLabel const & label : gone)
            takeAway(programme.metadata, label);
        EXPECT_EQ(programme.status(), status);
        bool const complete = status == Status::OPEN_COMPLETE || status == Status::CLOSED_COMPLETE;
        EXPECT_EQ(programme.status(false), complete ? Status::OPEN_COMPLETE : Status::OPEN_INCOMPLETE);
    }
}

TEST(Status, IsIncompleteWhereAValueIsNotKnown)
{
    Types::UInt8 const layout(255);
    Types::Rational const aspect(0, 0);
    std::function<void(CDCIEssenceDescriptor &)> const CASES[] = {
        [&](auto & descriptor) { descriptor.frameLayout(&layout); },
        [&](auto & descriptor) { descriptor.aspectRatio(&aspect); },
        [&](auto & descriptor)
        {
            descriptor.removeVideoLineMap(0);
            descriptor.addVideoLineMap(0, Types::Int32(0));
        },
    };
    for (auto const & change : CASES)
    {
        Programme programme;
        auto & all = dynamic_cast<MultipleDescriptor &>(*programme.sources[0]->descriptor());
        change(dynamic_cast<CDCIEssenceDescriptor &>(*all.subDescriptor(0)));
        EXPECT_EQ(programme.status(), Status::CLOSED_INCOMPLETE);
    }
}

}}}
