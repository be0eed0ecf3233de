#pragma once

#include "Platform/Export.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace Types {
class Batch;
class UniversalLabel;
}

namespace Metadata {

class PartitionMetadata;

namespace Structural {

class Preface;

/// The Preface.
///
/// \throws Exceptions::NotFound when there is none.
VANTRY_EXPORT Preface & findPreface(PartitionMetadata const & metadata);

/// The operational pattern that the Preface names, or null.
///
/// \throws Exceptions::NotFound when there is no Preface.
VANTRY_EXPORT Types::UniversalLabel const * operationalPattern(PartitionMetadata const & metadata);

/// Copies of the labels of essence containers that the Preface lists.
///
/// \throws Exceptions::NotFound when there is no Preface.
VANTRY_EXPORT Templates::auto_ptr<Types::Batch> essenceContainers(PartitionMetadata const & metadata);

}
}
}
