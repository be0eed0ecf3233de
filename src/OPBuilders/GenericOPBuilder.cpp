#include "OPBuilders/GenericOPBuilder.h"

#include "Exceptions/Check.h"
#include "Exceptions/InvalidFormat.h"
#include "Metadata/Structural/Preface.h"
#include "Metadata/Structural/Sequence.h"
#include "Metadata/Structural/SourcePackage.h"
#include "Metadata/Structural/Track.h"
#include "Metadata/Structural/TrackHelpers.h"
#include "OPBuilders/BasicOPBuilder_impl.h"
#include "OPBuilders/MaterialPackageProxy_impl.h"
#include "OPBuilders/PackagesOf.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace OPBuilders {

using namespace Metadata::Structural;

namespace {

bool hasSeveralEssenceTracks(GenericPackage const & package)
{
    unsigned int count = 0;
    for (unsigned int i = 0; i < package.tracksCount(); ++i)
    {
        Track const * const track = package.track(i);
        VANTRY_CHECK(track != 0, InvalidFormat, "Track is null");
        Sequence const * const seq = track->sequence();
        VANTRY_CHECK(seq != 0, InvalidFormat, "Track has no sequence");
        Types::UniversalLabel const * const definition = seq->dataDefinition();
        VANTRY_CHECK(definition != 0, InvalidFormat, "Sequence has no Data Definition");
        if (isEssenceDataDefinition(*definition))
            ++count;
    }
    return count > 1;
}

bool hasSeveralEssenceTracks(ContentStorage const & storage)
{
    bool several = false;
    for (SourcePackage const * package : packagesOf<SourcePackage>(storage))
        several |= hasSeveralEssenceTracks(*package);
    return several;
}

}

class GenericOPBuilder::Impl : public BasicOPBuilder_impl
{
public:
    Impl(Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary, Product const & product,
         Types::Timestamp const * date, bool externalEssence, bool nonStream) :
        BasicOPBuilder_impl(dictionary, product, date, externalEssence, nonStream)
    {
        preface().operationalPattern(&label());
    }

    MaterialPackageProxy * createMaterialPackage(Utils::TimeCode const & start, Rate const & rate,
                                                 Types::UMID32 const * id)
    {
        packages_.push_back(
            std::make_unique<MaterialPackageProxy_impl>(base(), contentStorage(), date(), start, rate, id));
        if (packages_.size() > 1)
            label().raise(OPLabel::ALTERNATE_PACKAGES);
        return packages_.back().get();
    }

    void update()
    {
        label().externalEssence(externalEssence());
        label().severalEssenceTracks(hasSeveralEssenceTracks(contentStorage()));
        if (packages_.size() == 1 && packages_.front()->hasSeveralSources())
            label().raise(OPLabel::GANGED_PACKAGES);
        for (std::unique_ptr<MaterialPackageProxy_impl> const & package : packages_)
            package->update();
        preface().operationalPattern(&label());
        updateEssenceContainers(!suppressMultipleWrappingsUL);
    }

    bool suppressMultipleWrappingsUL = false;

private:
    Templates::vector<std::unique_ptr<MaterialPackageProxy_impl>> packages_;
};

GenericOPBuilder::GenericOPBuilder(Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary,
                                   unsigned short const * companyName, unsigned short const * productName,
                                   unsigned short const * versionString, Types::UUID const & productUID,
                                   Types::ProductVersion const * productVersion, Types::Timestamp const * date,
                                   bool externalEssence, bool nonStream) :
    impl_(new Impl(dictionary, {companyName, productName, versionString, productUID, productVersion}, date,
                   externalEssence, nonStream))
{
}

GenericOPBuilder::~GenericOPBuilder()
{
    delete impl_;
}

Templates::SharedPtr<Metadata::PartitionMetadata> const & GenericOPBuilder::metadata() const
{
    return impl_->metadata();
}

MaterialPackageProxy * GenericOPBuilder::createMaterialPackage(Utils::TimeCode const & start, Rate const & rate)
{
    return impl_->createMaterialPackage(start, rate, nullptr);
}

MaterialPackageProxy * GenericOPBuilder::createMaterialPackage(Utils::TimeCode const & start, Rate const & rate,
                                                               Types::UMID32 const & id)
{
    return impl_->createMaterialPackage(start, rate, &id);
}

void GenericOPBuilder::externalEssence(bool externalEssence)
{
    impl_->externalEssence(externalEssence);
}

void GenericOPBuilder::suppressMultipleWrappingsUL(bool suppress)
{
    impl_->suppressMultipleWrappingsUL = suppress;
}

Types::UniversalLabel const & GenericOPBuilder::currentOP() const
{
    return impl_->label();
}

void GenericOPBuilder::update()
{
    impl_->update();
}

}}
