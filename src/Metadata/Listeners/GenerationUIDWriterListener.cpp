#include "Metadata/Listeners/GenerationUIDWriterListener.h"

#include "MetaMetadata/MetaElement.h"
#include "Metadata/Listeners/GatheredChanges.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/Identification.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Types/Factories/UID.h"

namespace Vantry { namespace Metadata { namespace Listeners {

namespace {

// A new one, the last of the Preface and the one that changed it.
Structural::Identification & makeIdentification(PartitionMetadata & metadata)
{
    Structural::Preface & preface = Structural::findPreface(metadata);
    unsigned int const index = preface.identificationsCount();
    MetadataSet & set = *metadata.createMetadataSet(Structural::StructuralMetadataKeys::identification());
    try
    {
        auto & identification = dynamic_cast<Structural::Identification &>(set);
        Types::UUID const generation = Types::Factories::UID::generateUUID(Types::Factories::UID::TIME_SNAP_VERSION_1);
        identification.thisGenerationUID(&generation);
        preface.addIdentification(index, &identification);
        preface.generation(&identification);
        return identification;
    }
    catch (...)
    {
        if (preface.identificationsCount() > index)
            preface.removeIdentification(index);
        metadata.removeMetadataSet(Types::UUID(*set.instanceUID()));
        throw;
    }
}

}

class GenerationUIDWriterListener::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    void stampAll()
    {
        auto const created = changes.createdSets();
        auto const modified = changes.modifiedSets();
        if (created.empty() && modified.empty())
            return;

        if (identification == nullptr)
            identification = &makeIdentification(changes.metadata());
        for (MetadataSet * set : modified)
            stamp(*set);
        for (MetadataSet * set : created)
            stamp(*set);
    }

    GatheredChanges changes;
    Structural::Identification * identification = nullptr;

private:
    void stamp(MetadataSet & set) const
    {
        Types::UniversalLabel const & label = Structural::Labels::generationUID();
        Types::UUID const * const generation = identification->thisGenerationUID();
        bool const isTrackable = dynamic_cast<Structural::TrackableMetadataSet const *>(&set) != nullptr;
        // Without a generation to tell, the old one is wrong all the same.
        if (set.findElement(label) != nullptr && (generation != nullptr || isTrackable))
            Structural::setValue(set, label, generation);
    }
};

GenerationUIDWriterListener::GenerationUIDWriterListener() : impl_(new Impl) {}

GenerationUIDWriterListener::~GenerationUIDWriterListener()
{
    delete impl_;
}

void GenerationUIDWriterListener::reset()
{
    impl_->identification = nullptr;
}

void GenerationUIDWriterListener::setIdentification(Structural::Identification * identification)
{
    impl_->identification = identification;
}

void GenerationUIDWriterListener::commit()
{
    impl_->changes.commit([this] { impl_->stampAll(); });
}

void GenerationUIDWriterListener::metadataSetKey(KLV::Key &) {}

void GenerationUIDWriterListener::createdMetadataSet(MetadataSet * set)
{
    impl_->changes.created(*set);
}

// Another listener may keep it there yet.
void GenerationUIDWriterListener::removedMetadataSet(MetadataSet *) {}

void GenerationUIDWriterListener::addedElement(MetadataSet & set, MetaMetadata::MetaElement const *, Element &,
                                               Types::BaseType const &)
{
    impl_->changes.modified(set);
}

void GenerationUIDWriterListener::updatedElement(MetadataSet & set, MetaMetadata::MetaElement const *, Element &,
                                                 Types::SimpleDataType const &, Types::SimpleDataType const &)
{
    impl_->changes.modified(set);
}

void GenerationUIDWriterListener::updatedElement(MetadataSet & set, MetaMetadata::MetaElement const *, Element &,
                                                 Types::Collection const &, Types::Collection const &)
{
    impl_->changes.modified(set);
}

void GenerationUIDWriterListener::updatedElementCollection(MetadataSet & set, MetaMetadata::MetaElement const *,
                                                           Element &, Types::Collection const &, unsigned int,
                                                           Types::SimpleDataType const *)
{
    impl_->changes.modified(set);
}

void GenerationUIDWriterListener::removedElement(MetadataSet & set, MetaMetadata::MetaElement const * metaElement,
                                                 Element &, Types::BaseType const &)
{
    impl_->changes.modified(set);

    // A set has its identifier until it goes for good.
    if (&set == impl_->identification && metaElement != nullptr &&
        metaElement->universalLabel() == MetadataULs::instanceUID())
        reset();
}

}}}
