#pragma once

#include "Metadata/PartitionMetadata.h"

namespace Vantry { namespace Metadata {

/// Enters each attribute that the sets can have in the primer pack.
///
/// \throws Exceptions::InvalidLocalTag when there are too many.
void assignLocalTags(PartitionMetadata::MetadataSets const & sets, PartitionDictionary & dictionary);

}}
