#include "Metadata/Listeners/LastModifiedDateUpdaterListener.h"

#include "Metadata/Listeners/GatheredChanges.h"
#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/GenericPackage.h"
#include "Metadata/Structural/Preface.h"
#include "Types/Factories/TimeStamp.h"

#include <functional>
#include <set>

namespace Vantry { namespace Metadata { namespace Listeners {

namespace {

void stamp(MetadataSet & set, Types::Timestamp const & now)
{
    if (auto * const package = dynamic_cast<Structural::GenericPackage *>(&set))
        package->packageModifiedDate(&now);
    else if (auto * const preface = dynamic_cast<Structural::Preface *>(&set))
        preface->lastModifiedDate(&now);
}

// Each set once, however many paths lead to it.
void stampWithOwners(Templates::vector<MetadataSet *> pending)
{
    Types::Timestamp const now = Types::Factories::TimeStamp::getCurrentDate();
    std::set<MetadataSet *, std::less<>, Platform::Allocator<MetadataSet *>> stamped;
    while (!pending.empty())
    {
        MetadataSet & set = *pending.back();
        pending.pop_back();
        if (!stamped.insert(&set).second)
            continue;
        stamp(set, now);
        dynamic_cast<PartitionMetadata const &>(*set.owner()).parentSets(&set, pending);
    }
}

}

class LastModifiedDateUpdaterListener::Impl
{
public:
    VANTRY_CLASS_ALLOCATION

    GatheredChanges changes;
};

LastModifiedDateUpdaterListener::LastModifiedDateUpdaterListener() : impl_(new Impl) {}

LastModifiedDateUpdaterListener::~LastModifiedDateUpdaterListener()
{
    delete impl_;
}

void LastModifiedDateUpdaterListener::commit()
{
    impl_->changes.commit(
        [this]
        {
            auto const modified = impl_->changes.modifiedSets();
            if (!modified.empty())
                stampWithOwners(modified);
        });
}

void LastModifiedDateUpdaterListener::addedElement(MetadataSet & set, MetaMetadata::MetaElement const *, Element &,
                                                   Types::BaseType const &)
{
    impl_->changes.modified(set);
}

void LastModifiedDateUpdaterListener::updatedElement(MetadataSet & set, MetaMetadata::MetaElement const *, Element &,
                                                     Types::SimpleDataType const &, Types::SimpleDataType const &)
{
    impl_->changes.modified(set);
}

void LastModifiedDateUpdaterListener::updatedElement(MetadataSet & set, MetaMetadata::MetaElement const *, Element &,
                                                     Types::Collection const &, Types::Collection const &)
{
    impl_->changes.modified(set);
}

void LastModifiedDateUpdaterListener::updatedElementCollection(MetadataSet & set, MetaMetadata::MetaElement const *,
                                                               Element &, Types::Collection const &, unsigned int,
                                                               Types::SimpleDataType const *)
{
    impl_->changes.modified(set);
}

void LastModifiedDateUpdaterListener::removedElement(MetadataSet & set, MetaMetadata::MetaElement const *, Element &,
                                                     Types::BaseType const &)
{
    impl_->changes.modified(set);
}

}}}
