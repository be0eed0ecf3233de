#pragma once

namespace Vantry { namespace Metadata {

class PartitionMetadata;

namespace Structural {

/// Puts material packages ahead of the others in the ContentStorage, and time
/// code tracks ahead of the others in each package. Each group keeps its
/// order. References to what isn't there stay where they are in theirs.
///
/// \throws Exceptions::NotFound when there is no Preface.
/// \throws Exceptions::InvalidFormat when there is no ContentStorage or no
///         package in it.
void orderPackagesAndTracks(PartitionMetadata & metadata);

}
}}
