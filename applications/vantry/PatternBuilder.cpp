#include "PatternBuilder.h"

#include "OPBuilders/GenericOPBuilder.h"
#include "OPBuilders/OPAtomBuilder.h"
#include "Platform/WideLiteral.h"
#include "Types/ProductVersion.h"
#include "Types/UUID.h"
#include "Version.h"

namespace Vantry { namespace Application {

using OPBuilders::GenericOPBuilder;
using OPBuilders::OPAtomBuilder;

namespace {

constexpr auto COMPANY = Platform::wide(u"Vantry");
constexpr auto PRODUCT = Platform::wide(u"vantry");
constexpr auto PRODUCT_UID = Platform::wide(u"8c6f1f52-64d1-4c0b-9a0e-6a2f4d0f3b71");

Types::UUID productUID()
{
    return Types::UUID(PRODUCT_UID, Types::StringRepresentationEncodingType::RFC4122);
}

Types::ProductVersion productVersion()
{
    return {Version::major(), Version::minor(), Version::patch(), Version::build(), Version::releaseVersion()};
}

template <class Builder>
class BuilderOf : public PatternBuilder
{
public:
    template <class... Flags>
    BuilderOf(Dictionary const & dictionary, Types::Timestamp const & date, Flags... flags) :
        version_(productVersion()),
        builder_(dictionary, COMPANY, PRODUCT, Version::versionString(), productUID(), &version_, &date, flags...)
    {
    }

    Templates::SharedPtr<Metadata::PartitionMetadata> const & metadata() const override { return builder_.metadata(); }

    OPBuilders::MaterialPackageProxy & createMaterialPackage(Utils::TimeCode const & start,
                                                             Templates::Rational<int> const & rate) override
    {
        return *builder_.createMaterialPackage(start, rate);
    }

    void essencePackage(Metadata::Structural::SourcePackage const &) override {}
    void update() override { builder_.update(); }

protected:
    Builder & builder() { return builder_; }

private:
    Types::ProductVersion version_;
    Builder builder_;
};

class AtomBuilder : public BuilderOf<OPAtomBuilder>
{
public:
    using BuilderOf<OPAtomBuilder>::BuilderOf;

    void essencePackage(Metadata::Structural::SourcePackage const & package) override
    {
        builder().topLevelFilePackage(package);
    }

    OPAtomBuilder * atom() override { return &builder(); }
};

}

std::unique_ptr<PatternBuilder> PatternBuilder::forOP1a(Dictionary const & dictionary, Types::Timestamp const & date)
{
    bool const externalEssence = false;
    bool const nonStream = false;
    return std::make_unique<BuilderOf<GenericOPBuilder>>(dictionary, date, externalEssence, nonStream);
}

std::unique_ptr<PatternBuilder> PatternBuilder::forOPAtom(Dictionary const & dictionary, Types::Timestamp const & date)
{
    return std::make_unique<AtomBuilder>(dictionary, date);
}

}}
