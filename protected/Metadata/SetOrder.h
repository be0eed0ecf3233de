#pragma once

#include "Templates/Containers.h"

namespace Vantry { namespace Metadata {

class MetadataSet;
class PartitionMetadata;

/// Orders in which sets are written.
namespace SetOrder {

using Sets = Templates::vector<MetadataSet const *>;

/// The Preface, then the others by key.
///
/// \throws Exceptions::InvalidStructure when there isn't one Preface.
Sets prefaceFirst(PartitionMetadata const & metadata);

/// Rearranges an order that starts with the Preface: backwards, with the
/// Preface between structural sets and others.
///
/// \param experimentalFirst  sets with experimental keys ahead of all, forwards
Sets reversed(Sets const & forward, bool experimentalFirst);

/// Sets without instance identifier pass.
///
/// \throws Exceptions::InvalidFormat when one is there twice.
void checkInstanceUIDs(PartitionMetadata const & metadata);

}
}}
