#include "MXFIO/PackageContainers.h"

#include "MXFIO/ContentStorageProfile.h"
#include "MXFIO/ContentStorageReader.h"
#include "MXFIO/Reader2.h"
#include "Metadata/Structural/ContentStorage.h"
#include "Metadata/Structural/EssenceContainerData.h"

namespace Vantry { namespace MXFIO {

PackageContainers::PackageContainers(Reader & reader, Metadata::Structural::ContentStorage const * storage,
                                     bool loadRIP, Templates::SharedPtr<ContentStorageProfile> const & profile) :
    reader_(reader), storage_(storage), loadRIP_(loadRIP), profile_(profile)
{
}

PackageContainers::~PackageContainers() = default;

ContentStorageReader * PackageContainers::container(Types::UMID32 const * packageUID)
{
    if (packageUID == nullptr || storage_ == nullptr)
        return nullptr;

    auto const known = containers_.find(*packageUID);
    if (known != containers_.end())
        return known->second.get();

    Metadata::Structural::EssenceContainerData * const data = storage_->essenceContainerData(*packageUID);
    if (data == nullptr)
        return nullptr;

    // A reader that finds the end of the file measures for little; for others
    // it is a walk through all of it.
    bool const computeSize = dynamic_cast<Reader2 *>(&reader_) != nullptr;
    std::unique_ptr<ContentStorageReader> opened(
        new ContentStorageReader(reader_, *data, loadRIP_, computeSize, profile_));
    order_.reserve(order_.size() + 1);
    ContentStorageReader * const container = opened.get();
    containers_.emplace(*packageUID, std::move(opened));
    order_.push_back(container);
    return container;
}

void PackageContainers::setContentStorageProfile(Templates::SharedPtr<ContentStorageProfile> const & profile)
{
    profile_ = profile;
    for (ContentStorageReader * const container : order_)
        container->setContentStorageProfile(profile);
}

}}
