#pragma once

#include "Templates/Containers.h"

namespace Vantry { namespace Metadata {

class MetadataSet;

/// Orders in which sets are written.
namespace SetOrder {

using Sets = Templates::vector<MetadataSet const *>;

/// All sets of a partition, by key.
using ByKey = Templates::vector<MetadataSet *>;

/// The Preface, then the others by key.
///
/// \throws Exceptions::InvalidStructure when there isn't one Preface.
Sets prefaceFirst(ByKey const & sets);

/// Rearranges an order that starts with the Preface: backwards, with the
/// Preface between structural sets and others.
///
/// \param experimentalFirst  sets with experimental keys ahead of all, forwards
Sets reversed(Sets const & forward, bool experimentalFirst);

/// Appends the sets that aren't in the order yet, by key.
void appendOthers(ByKey const & sets, Sets & order);

/// Sets without instance identifier pass.
///
/// \throws Exceptions::InvalidFormat when one is there twice.
void checkInstanceUIDs(ByKey const & sets);

}
}}
