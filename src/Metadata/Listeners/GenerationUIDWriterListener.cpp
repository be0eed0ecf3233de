#include "Metadata/Listeners/GenerationUIDWriterListener.h"

#include "Metadata/Listeners/GatheredChanges.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/Accessors.h"
#include "Metadata/Structural/Identification.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/PrefaceHelpers.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Types/Factories/UID.h"

namespace Vantry { namespace Metadata { namespace Listeners {

namespace {

// Makes it the last one of the Preface and the one that changed it.
void enterInPreface(PartitionMetadata const & metadata, Structural::Identification & identification)
{
    Types::UUID const generation = Types::Factories::UID::generateUUID(Types::Factories::UID::TIME_SNAP_VERSION_1);
    identification.thisGenerationUID(&generation);

    Structural::Preface & preface = Structural::findPreface(metadata);
    preface.addIdentification(preface.identificationsCount(), &identification);
    preface.generation(&identification);
}

Structural::Identification & makeIdentification(PartitionMetadata & metadata)
{
    Structural::findPreface(metadata);
    MetadataSet & set = *metadata.createMetadataSet(Structural::StructuralMetadataKeys::identification());
    try
    {
        auto & identification = dynamic_cast<Structural::Identification &>(set);
        enterInPreface(metadata, identification);
        return identification;
    }
    catch (...)
    {
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
            identification = &makeIdentification(*changes.metadata());
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
        Types::UUID const * const generation = identification->thisGenerationUID();
        if (generation != nullptr && set.findElement(Structural::Labels::generationUID()) != nullptr)
            Structural::setValue(set, Structural::Labels::generationUID(), generation);
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

void GenerationUIDWriterListener::removedMetadataSet(MetadataSet * set)
{
    if (set == impl_->identification)
        reset();
}

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

void GenerationUIDWriterListener::removedElement(MetadataSet & set, MetaMetadata::MetaElement const *, Element &,
                                                 Types::BaseType const &)
{
    impl_->changes.modified(set);
}

}}}
