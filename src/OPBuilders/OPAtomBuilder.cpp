#include "OPBuilders/OPAtomBuilder.h"

#include "Metadata/Structural/MaterialPackage.h"
#include "Metadata/Structural/PackageHelpers.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SetReference.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/StructuralMetadataULs.h"
#include "Metadata/Structural/TimelineTrack.h"
#include "OPBuilders/BasicOPBuilder_impl.h"
#include "OPBuilders/MaterialPackageProxy_impl.h"
#include "OPBuilders/PackagesOf.h"
#include "Platform/WideLiteral.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace OPBuilders {

using namespace Metadata::Structural;

namespace {

// In byte 13 of the label (SMPTE 390M, 6.1).
int const COMPLEXITY = 13;
unsigned char const SEVERAL_CLIPS = 1 << 0;
unsigned char const SEVERAL_TRACKS = 1 << 1;

MaterialPackage const * materialPackageOf(Preface const & preface, ContentStorage const & storage)
{
    if (auto const * const primary = dynamic_cast<MaterialPackage *>(preface.primaryPackage()))
        return primary;
    Templates::vector<MaterialPackage *> const packages = packagesOf<MaterialPackage>(storage);
    return packages.empty() ? nullptr : packages.front();
}

unsigned char complexityOf(MaterialPackage const & package)
{
    Templates::list<TimelineTrack *> tracks;
    getAllEssenceTracks(package, tracks);

    unsigned char complexity = tracks.size() > 1 ? SEVERAL_TRACKS : 0;
    for (TimelineTrack const * track : tracks)
        if (track->sequence()->structuralComponentsCount() > 1)
            complexity |= SEVERAL_CLIPS;
    return complexity;
}

}

class OPAtomBuilder::Impl : public BasicOPBuilder_impl
{
public:
    Impl(Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary, Product const & product,
         Types::Timestamp const * date) :
        BasicOPBuilder_impl(dictionary, product, date, false, false),
        label_(Platform::wide(u"06.0E.2B.34.04.01.01.02.0D.01.02.01.10.00.00.00"),
               Types::StringRepresentationEncodingType::DOTTED_BYTES)
    {
        preface().operationalPattern(&label_);
    }

    MaterialPackageProxy * createMaterialPackage(Utils::TimeCode const & start, Rate const & rate)
    {
        package_ = std::make_unique<MaterialPackageProxy_impl>(base(), contentStorage(), date(), start, rate, nullptr);
        return package_.get();
    }

    Types::UniversalLabel const & currentOP() const { return label_; }

    void update()
    {
        if (package_ != nullptr)
            package_->update();
        if (MaterialPackage const * const package = materialPackageOf(preface(), contentStorage()))
            label_[COMPLEXITY] |= complexityOf(*package);
        preface().operationalPattern(&label_);
        updateEssenceContainers(true);
    }

private:
    std::unique_ptr<MaterialPackageProxy_impl> package_;

    // That of the base takes what the package tells, and goes nowhere.
    Types::UniversalLabel label_;
};

OPAtomBuilder::OPAtomBuilder(Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary,
                             unsigned short const * companyName, unsigned short const * productName,
                             unsigned short const * versionString, Types::UUID const & productUID,
                             Types::ProductVersion const * productVersion, Types::Timestamp const * date) :
    impl_(new Impl(dictionary, {companyName, productName, versionString, productUID, productVersion}, date))
{
}

OPAtomBuilder::~OPAtomBuilder()
{
    delete impl_;
}

Templates::SharedPtr<Metadata::PartitionMetadata> const & OPAtomBuilder::metadata() const
{
    return impl_->metadata();
}

MaterialPackageProxy * OPAtomBuilder::createMaterialPackage(Utils::TimeCode const & start, Rate const & rate)
{
    return impl_->createMaterialPackage(start, rate);
}

void OPAtomBuilder::topLevelFilePackage(SourcePackage const & package)
{
    setReferencedMetadataSet(&impl_->preface(), StructuralMetadataULs::primaryPackage(), &package);
}

Types::UniversalLabel const & OPAtomBuilder::currentOP() const
{
    return impl_->currentOP();
}

void OPAtomBuilder::update()
{
    impl_->update();
}

}}
