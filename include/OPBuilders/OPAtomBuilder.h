#pragma once

#include "Metadata/Structural/Declarations.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/Rational.h"
#include "Templates/SharedPtr.h"

namespace Vantry {
namespace MetaMetadata {
class Dictionary;
}
namespace Metadata {
class PartitionMetadata;
}
namespace Types {
class ProductVersion;
class Timestamp;
class UniversalLabel;
class UUID;
}
namespace Utils {
class TimeCode;
}

namespace OPBuilders {

class MaterialPackageProxy;

/// Builds header metadata for OP-Atom: a file with the essence of one track
/// and one material package (SMPTE 390M). OPAtomAggregator makes several such
/// files belong together.
///
/// As GenericOPBuilder, which see, but for the operational pattern.
class VANTRY_EXPORT OPAtomBuilder
{
public:
    VANTRY_CLASS_ALLOCATION

    /// The arguments are those of GenericOPBuilder.
    OPAtomBuilder(Templates::SharedPtr<MetaMetadata::Dictionary> const & dictionary, unsigned short const * companyName,
                  unsigned short const * productName, unsigned short const * versionString,
                  Types::UUID const & productUID, Types::ProductVersion const * productVersion,
                  Types::Timestamp const * date);
    OPAtomBuilder(OPAtomBuilder const &) = delete;
    OPAtomBuilder & operator=(OPAtomBuilder const &) = delete;

    /// Destroys the proxy; the metadata stay with those who share them.
    ~OPAtomBuilder();

    Templates::SharedPtr<Metadata::PartitionMetadata> const & metadata() const;

    /// Adds a material package with a time code track, with which the builder
    /// goes on: it destroys the proxy of an earlier package and updates that
    /// no more.
    ///
    /// \param start  the first time code
    /// \param rate   edit units of the time code track per second
    /// \return owned by the builder
    MaterialPackageProxy * createMaterialPackage(Utils::TimeCode const & start, Templates::Rational<int> const & rate);

    /// Makes the package with the file's essence the primary one, as SMPTE 390M
    /// asks for.
    void topLevelFilePackage(Metadata::Structural::SourcePackage const & package);

    /// The operational pattern as of the last update.
    Types::UniversalLabel const & currentOP() const;

    /// Brings the metadata up to date, as GenericOPBuilder does. In the
    /// operational pattern, what once was said to be complex stays so.
    ///
    /// \throws Exceptions::InvalidFormat, Exceptions::InvalidValue as
    ///         GenericOPBuilder::update.
    void update();

private:
    class Impl;
    Impl * impl_;
};

}
}
