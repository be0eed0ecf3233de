#include "Metadata/Listeners/MetadataSetRelationshipManager.h"

#include "Exceptions/Check.h"
#include "Exceptions/OperationNotAllowed.h"
#include "Metadata/ArrayReferenceElement.h"
#include "Metadata/BatchReferenceElement.h"
#include "Metadata/Listeners/Cascade.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/PartitionMetadataUtils.h"
#include "Metadata/ReferenceElement.h"
#include "Metadata/Visitors/NullNonConstElementVisitor.h"
#include "Types/Collection.h"
#include "Types/Reference.h"

#include <utility>

namespace Vantry { namespace Metadata { namespace Listeners {

namespace {

// Takes the first reference to an identifier away from an element.
class ClearReference final : public Visitors::NullNonConstElementVisitor
{
public:
    explicit ClearReference(Types::UUID const & target) : target_(target) {}

    using NullNonConstElementVisitor::visit;

    void visit(ReferenceElement & element) override
    {
        // Required or not; an element without a place in the schema can't be
        // required.
        if (element.placeInSchema() != nullptr)
            element.set(static_cast<MetadataSet const *>(nullptr));
        else
            element.set(Templates::auto_ptr<Types::SimpleDataType>());
    }

    void visit(ArrayReferenceElement & element) override { removeFrom(element); }
    void visit(BatchReferenceElement & element) override { removeFrom(element); }

private:
    void removeFrom(CollectionReferenceElement & element)
    {
        for (unsigned int i = 0; i < element.size(); ++i)
        {
            auto const * const item = dynamic_cast<Types::Reference const *>(&element.value()->at(i));
            if (item == nullptr || item->uuid() != target_)
                continue;
            element.remove(i);
            return;
        }
    }

    Types::UUID const target_;
};

unsigned int addTo(ReferenceEntry::Elements & elements, ReferenceEntry const * entry,
                   ReferenceEntry::Elements ReferenceEntry::*kind)
{
    if (entry != nullptr)
        elements.insert((entry->*kind).begin(), (entry->*kind).end());
    return static_cast<unsigned int>(elements.size());
}

}

class MetadataSetRelationshipManager::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    explicit Impl(PartitionMetadata * theMetadata) : metadata(theMetadata) {}

    // While sets are removed together with what they own.
    class Cascading
    {
    public:
        explicit Cascading(Impl & impl) : impl_(impl), enforced_(std::exchange(impl.enforced, false))
        {
            impl_.cascading = true;
            impl_.visitedSets.clear();
        }

        Cascading(Cascading const &) = delete;
        Cascading & operator=(Cascading const &) = delete;

        ~Cascading()
        {
            impl_.enforced = enforced_;
            impl_.cascading = false;
        }

    private:
        Impl & impl_;
        bool enforced_;
    };

    ReferenceEntry const * entryOf(MetadataSet const & set) const
    {
        Types::UUID const * const instanceUID = set.instanceUID();
        return instanceUID != nullptr ? references.find(*instanceUID) : nullptr;
    }

    MetadataSet * parentOf(MetadataSet const & set) const
    {
        ReferenceEntry const * const entry = entryOf(set);
        return entry != nullptr && !entry->strong.empty() ? &(*entry->strong.begin())->metadataSet() : nullptr;
    }

    void unlink(MetadataSet & set);
    void clearReferencesTo(Types::UUID const & instanceUID) const;

    PartitionMetadata * const metadata;
    ReferenceRegister references;
    InstanceUIDs visitedSets;
    bool enforced = true;
    bool cascading = false;
};

// What the set refers to, and what refers to it.
void MetadataSetRelationshipManager::Impl::unlink(MetadataSet & set)
{
    references.forget(set);
    try
    {
        if (set.instanceUID() != nullptr)
            clearReferencesTo(Types::UUID(*set.instanceUID()));
    }
    catch (...)
    {
        // It stays in the partition then.
        references.add(set);
        throw;
    }
}

// Clearing one changes the entry.
void MetadataSetRelationshipManager::Impl::clearReferencesTo(Types::UUID const & instanceUID) const
{
    ReferenceEntry const * const entry = references.find(instanceUID);
    if (entry == nullptr)
        return;

    ReferenceEntry const before = *entry;
    ClearReference visitor(instanceUID);
    for (Element * element : before.weak)
        element->accept(visitor);
    for (Element * element : before.strong)
        element->accept(visitor);
}

MetadataSetRelationshipManager::MetadataSetRelationshipManager(PartitionMetadata * partitionMetadata) :
    impl_(new Impl(partitionMetadata))
{
}

MetadataSetRelationshipManager::~MetadataSetRelationshipManager()
{
    delete impl_;
}

bool MetadataSetRelationshipManager::canDeleteMetadataSet(MetadataSet const * set) const
{
    return impl_->entryOf(*set) == nullptr;
}

MetadataSet * MetadataSetRelationshipManager::parentSet(MetadataSet * set)
{
    return impl_->parentOf(*set);
}

MetadataSet const * MetadataSetRelationshipManager::parentSet(MetadataSet const * set) const
{
    return impl_->parentOf(*set);
}

unsigned int MetadataSetRelationshipManager::metadataSetStrongRefs(MetadataSet const * set, Elements & elements) const
{
    return addTo(elements, impl_->entryOf(*set), &ReferenceEntry::strong);
}

unsigned int MetadataSetRelationshipManager::metadataSetWeakRefs(MetadataSet const * set, Elements & elements) const
{
    return addTo(elements, impl_->entryOf(*set), &ReferenceEntry::weak);
}

void MetadataSetRelationshipManager::enforceReferentialIntegrity(bool enforce)
{
    impl_->enforced = enforce;
}

bool MetadataSetRelationshipManager::cascadeDelete(MetadataSet * set)
{
    if (set == nullptr || set->instanceUID() == nullptr)
        return false;

    auto const going = Cascade(*impl_->metadata, impl_->references).below(*set->instanceUID());
    Impl::Cascading const cascading(*impl_);
    bool const removed = impl_->metadata->removeMetadataSet(going.front());
    for (auto next = going.begin() + 1; next != going.end(); ++next)
        impl_->metadata->removeMetadataSet(*next);
    return removed;
}

MetadataSetRelationshipManager::UUID2References & MetadataSetRelationshipManager::uuid2ReferencesMap()
{
    return impl_->references.byUUID;
}

MetadataSetRelationshipManager::References2UUID & MetadataSetRelationshipManager::references2UUIDMap()
{
    return impl_->references.byElement;
}

void MetadataSetRelationshipManager::metadataSetKey(KLV::Key &) {}

void MetadataSetRelationshipManager::createdMetadataSet(MetadataSet *) {}

void MetadataSetRelationshipManager::removedMetadataSet(MetadataSet * set)
{
    if (impl_->enforced && impl_->entryOf(*set) != nullptr)
        VANTRY_FAIL(OperationNotAllowed, "Cannot removed this MetadataSet because is referenced by other Metadata Set");
    if (!impl_->cascading)
        return;

    Types::UUID const * const instanceUID = set->instanceUID();
    if (instanceUID != nullptr && !impl_->visitedSets.insert(*instanceUID).second)
        failCircular(*instanceUID);
    impl_->unlink(*set);
}

void MetadataSetRelationshipManager::addedElement(MetadataSet &, MetaMetadata::MetaElement const *, Element & element,
                                                  Types::BaseType const & newValue)
{
    // A collection that is loaded twice is told as added twice.
    impl_->references.forget(element);
    impl_->references.add(element, newValue);
}

void MetadataSetRelationshipManager::updatedElement(MetadataSet &, MetaMetadata::MetaElement const *, Element & element,
                                                    Types::SimpleDataType const &,
                                                    Types::SimpleDataType const & newValue)
{
    impl_->references.forget(element);
    impl_->references.addItem(element, newValue);
}

void MetadataSetRelationshipManager::updatedElement(MetadataSet &, MetaMetadata::MetaElement const *, Element & element,
                                                    Types::Collection const &, Types::Collection const & newValue)
{
    impl_->references.forget(element);
    impl_->references.add(element, newValue);
}

void MetadataSetRelationshipManager::updatedElementCollection(MetadataSet &, MetaMetadata::MetaElement const *,
                                                              Element & element, Types::Collection const & collection,
                                                              unsigned int index, Types::SimpleDataType const * item)
{
    if (item != nullptr)
        impl_->references.addItem(element, *item);
    else
        impl_->references.removeItem(element, collection.at(index));
}

void MetadataSetRelationshipManager::removedElement(MetadataSet &, MetaMetadata::MetaElement const *, Element & element,
                                                    Types::BaseType const &)
{
    impl_->references.forget(element);
}

}}}
