#include "OPBuilders/BasicOPBuilder_impl.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "MetaMetadata/Dictionary.h"
#include "Metadata/MetadataULs.h"
#include "Metadata/PartitionDictionary.h"
#include "Metadata/Structural/FileDescriptor.h"
#include "Metadata/Structural/Identification.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/StructuralMetadataKeys.h"
#include "Metadata/Structural/SubDescriptors.h"
#include "Metadata/Structural/Wrappings.h"
#include "OPBuilders/PackagesOf.h"
#include "Packs/PrimerPack.h"
#include "Platform/PlatformName.h"
#include "Types/Factories/TimeStamp.h"
#include "Types/Factories/UID.h"
#include "Types/ProductVersion.h"
#include "Types/UInt32.h"
#include "Types/UTF16String.h"
#include "Types/UUID.h"
#include "Types/VersionType.h"
#include "Version.h"

#include <set>

namespace Vantry { namespace OPBuilders {

using namespace Metadata::Structural;
using Types::Factories::UID;

namespace {

Metadata::PartitionMetadata * newMetadata(Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary)
{
    Templates::auto_ptr<Packs::PrimerPack> primer(new Packs::PrimerPack);
    return new Metadata::PartitionMetadata(
        Templates::auto_ptr<Metadata::PartitionDictionary>(new Metadata::PartitionDictionary(dictionary, primer)));
}

Preface & createPreface(Metadata::PartitionMetadata & metadata, Types::Timestamp const & date)
{
    Types::UInt32 const objectModelVersion(1);
    Preface & preface = createSet<Preface>(metadata, StructuralMetadataKeys::preface());
    preface.lastModifiedDate(&date);
    preface.objectModelVersion(&objectModelVersion);
    return preface;
}

void setVersions(Identification & identification, Types::ProductVersion const & version)
{
    static Types::ProductVersion const NONE(0, 0, 0, 0, Types::ProductVersion::RELEASE_UNKNOWN);
    Types::ProductVersion const library(Version::major(), Version::minor(), Version::patch(), Version::build(),
                                        Version::releaseVersion());
    identification.productVersion(&version);
    identification.toolkitVersion(version == NONE ? &version : &library);
}

Identification & createIdentification(Metadata::PartitionMetadata & metadata, Product const & product,
                                      Types::Timestamp const & date)
{
    Types::UTF16String const companyName(product.companyName);
    Types::UTF16String const productName(product.productName);
    Types::UTF16String const versionString(product.versionString);
    Types::UTF16String const platform(Platform::platformName().c_str());

    Identification & identification = createSet<Identification>(metadata, StructuralMetadataKeys::identification());
    Types::UUID const generation = UID::generateUUID(UID::TIME_SNAP_VERSION_1);
    identification.thisGenerationUID(&generation);
    identification.companyName(&companyName);
    identification.productName(&productName);
    if (product.productVersion != nullptr)
        setVersions(identification, *product.productVersion);
    identification.versionString(&versionString);
    identification.productUID(&product.productUID);
    identification.modifiedDate(&date);
    identification.platform(&platform);
    return identification;
}

// A batch without items is written with a count of 0, one that is absent isn't
// written at all; the standard wants these to be there.
template <class Append, class Remove>
void makePresent(Preface & preface, Append append, Remove remove)
{
    (preface.*append)(Metadata::MetadataULs::null());
    (preface.*remove)(0);
}

using LabelSet = std::set<Types::UniversalLabel>;

LabelSet essenceContainersOf(ContentStorage const & storage)
{
    LabelSet labels;
    for (SourcePackage const * package : packagesOf<SourcePackage>(storage))
        for (FileDescriptor const * descriptor :
             withSubDescriptors(dynamic_cast<FileDescriptor *>(package->descriptor())))
        {
            Types::UniversalLabel const * const ul = descriptor->essenceContainer();
            VANTRY_CHECK(ul != 0, InvalidFormat, "FileDescriptor doesn't have a EssenceContainer UL");
            labels.insert(*ul);
        }
    return labels;
}

}

BasicOPBuilder_impl::BasicOPBuilder_impl(Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary,
                                         Product const & product, Types::Timestamp const * date, bool isExternal,
                                         bool nonStream) :
    metadata_(newMetadata(dictionary)),
    date_(date != nullptr ? *date : Types::Factories::TimeStamp::getCurrentDate()),
    label_(isExternal, nonStream),
    externalEssence_(isExternal)
{
    preface_ = &createPreface(*metadata_, date_);
    identification_ = &createIdentification(*metadata_, product, date_);
    preface_->addIdentification(preface_->identificationsCount(), identification_);
    preface_->generation(identification_);
    contentStorage_ = &base().create<ContentStorage>(StructuralMetadataKeys::contentStorage());
    preface_->contentStorage(contentStorage_);
    Types::VersionType const version(1, 2);
    preface_->version(&version);
    makePresent(*preface_, &Preface::appendDmScheme, &Preface::removeDmScheme);
}

void BasicOPBuilder_impl::updateEssenceContainers(bool withMultipleWrappings)
{
    LabelSet labels = externalEssence_ ? LabelSet() : essenceContainersOf(*contentStorage_);
    if (!withMultipleWrappings)
        labels.erase(Wrappings::multipleWrapping());

    while (preface_->essenceContainersCount() != 0)
        preface_->removeEssenceContainer(preface_->essenceContainersCount() - 1);
    makePresent(*preface_, &Preface::appendEssenceContainer, &Preface::removeEssenceContainer);
    for (Types::UniversalLabel const & label : labels)
        preface_->appendEssenceContainer(label);
}

}}
