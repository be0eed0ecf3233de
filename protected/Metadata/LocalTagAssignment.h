#pragma once

#include "Templates/Containers.h"

namespace Vantry { namespace Metadata {

class MetadataSet;
class PartitionDictionary;

/// Enters each attribute that the sets can have in the primer pack.
///
/// \throws Exceptions::InvalidLocalTag when there are too many.
void assignLocalTags(Templates::vector<MetadataSet *> const & sets, PartitionDictionary & dictionary);

}}
