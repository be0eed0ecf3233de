#pragma once

#include "Packs/PartitionPack.h"
#include "Platform/Export.h"
#include "Templates/Containers.h"
#include "Types/UUID.h"

#include <functional>
#include <set>

namespace Vantry { namespace Metadata {

class MetadataSet;
class PartitionMetadata;

/// Instance identifiers that a walk over strong references has met.
using InstanceUIDs = std::set<Types::UUID, std::less<>, Platform::Allocator<Types::UUID>>;

/// The status that a partition with these metadata can have: closed when no
/// required attribute lacks its value, complete when no best effort attribute
/// does or says "not known".
///
/// \param closable  whether the partition can be closed at all
VANTRY_EXPORT Packs::PartitionPack::PartitionStatus verifyPartitionMetadataStatus(PartitionMetadata const & metadata,
                                                                                  bool closable);

/// Appends the sets that a set owns, in the order of its elements.
///
/// References to sets that aren't there are passed over.
///
/// \param visited      what was met before; takes the children in
/// \param withInvalid  look into invalid elements too
/// \throws Exceptions::InvalidFormat when a child was met before.
VANTRY_EXPORT void getChildStrongReferences(PartitionMetadata const & metadata, MetadataSet const & set,
                                            Templates::vector<MetadataSet const *> & children, InstanceUIDs & visited,
                                            bool withInvalid);

/// Appends all sets below a set.
///
/// \param depthFirst  each set and what it owns ahead of its next sibling;
///                    else the children of each set stand together
/// \throws Exceptions::InvalidFormat as above.
VANTRY_EXPORT void getChildStrongReferencesRecursive(PartitionMetadata const & metadata, MetadataSet const & set,
                                                     Templates::vector<MetadataSet const *> & order,
                                                     InstanceUIDs & visited, bool withInvalid, bool depthFirst);

}}
