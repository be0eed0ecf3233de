#include "Metadata/MetadataSetFactory.h"

#include "LibrarySingleton.h"
#include "Metadata/MetadataSet.h"
#include "Metadata/StructuralCreators.h"
#include "Templates/Containers.h"

namespace Vantry { namespace Metadata {

namespace {

class MetadataSetFactory_impl final : public MetadataSetFactory
{
public:
    MetadataSetFactory_impl() { registerStructuralCreators(*this); }

    MetadataSet * create(KLV::Key const & key, MetaMetadata::MetaMetadataSet const * metaMetadataSet,
                         MetadataSetOwner * owner) override
    {
        auto const found = creators_.find(key);
        return found != creators_.end() ? found->second(metaMetadataSet, owner)
                                        : new MetadataSet(key, metaMetadataSet, owner);
    }

    bool registerMetadataSet(KLV::Key const & key, Creator creator) override
    {
        creators_[key] = creator;
        return true;
    }

private:
    Templates::map<KLV::Key, Creator> creators_;
};

}

MetadataSetFactory & MetadataSetFactory::instance()
{
    return LibrarySingleton<MetadataSetFactory_impl>::instance();
}

MetadataSetFactory::~MetadataSetFactory() = default;

}}
