#pragma once

#include "Metadata/PartitionMetadata.h"

namespace Vantry { namespace Metadata { namespace Structural {

/// A new set in the metadata, by its class and the key of that.
///
/// \throws Exceptions::NotFound when the dictionary doesn't know the key.
template <class Set>
Set & createSet(PartitionMetadata & metadata, KLV::Key const & key)
{
    return dynamic_cast<Set &>(*metadata.createMetadataSet(key));
}

}}}
