#pragma once

#include "Schema/Tables.h"
#include "ValueReport.h"

namespace Vantry {
namespace Metadata {
class MetadataSet;
class PartitionMetadata;
namespace Structural {
class GenericPackage;
class Track;
}
}
namespace Types {
class UniversalLabel;
}

namespace Application {

class MetadataTree;
class SetNames;
class Warnings;

/// Tells of applications, packages, tracks and descriptors in header metadata,
/// in the form that machines get.
class PackageReport
{
public:
    using Json = ValueReport::Json;

    /// All is lent.
    PackageReport(Metadata::PartitionMetadata const & metadata, MetadataTree const & tree,
                  Schema::Tables const & tables, SetNames const & names, Warnings & warnings);

    /// Who wrote the file, oldest first.
    Json identifications() const;

    /// Material packages first.
    Json packages() const;

private:
    template <class Value>
    Json valueOr(Value const * value, Json const & otherwise) const
    {
        return value != nullptr ? values_(*value) : otherwise;
    }

    Json package(Metadata::Structural::GenericPackage const & set) const;
    Json track(Metadata::Structural::Track const & track) const;
    Json startTimecode(Metadata::Structural::Track const & track) const;
    Json descriptors(Metadata::MetadataSet const & package) const;
    Json descriptor(Metadata::MetadataSet const & set) const;

    Metadata::PartitionMetadata const & metadata_;
    MetadataTree const & tree_;
    ValueReport values_;
    SetNames const & names_;
    Warnings & warnings_;
};

}
}
