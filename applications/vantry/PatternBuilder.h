#pragma once

#include "Metadata/PartitionMetadata.h"
#include "Metadata/Structural/Declarations.h"
#include "OPBuilders/MaterialPackageProxy.h"
#include "Types/Timestamp.h"

#include <memory>

namespace Vantry {
namespace MetaMetadata {
class Dictionary;
}
namespace OPBuilders {
class OPAtomBuilder;
}
namespace Utils {
class TimeCode;
}

namespace Application {

/// Builds the header metadata of a file that the program makes, for one
/// operational pattern or the other.
class PatternBuilder
{
public:
    using Dictionary = Templates::SharedPtr<MetaMetadata::Dictionary>;

    /// \param date  when the file is made
    static std::unique_ptr<PatternBuilder> forOP1a(Dictionary const & dictionary, Types::Timestamp const & date);
    static std::unique_ptr<PatternBuilder> forOPAtom(Dictionary const & dictionary, Types::Timestamp const & date);

    virtual ~PatternBuilder() = default;

    virtual Templates::SharedPtr<Metadata::PartitionMetadata> const & metadata() const = 0;
    virtual OPBuilders::MaterialPackageProxy & createMaterialPackage(Utils::TimeCode const & start,
                                                                     Templates::Rational<int> const & rate) = 0;

    /// Tells which package the essence of the file belongs to.
    virtual void essencePackage(Metadata::Structural::SourcePackage const & package) = 0;

    /// Brings durations and operational pattern up to date.
    virtual void update() = 0;

    /// Null for another pattern.
    virtual OPBuilders::OPAtomBuilder * atom() { return nullptr; }
};

}
}
