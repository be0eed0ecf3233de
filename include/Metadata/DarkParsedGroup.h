#pragma once

#include "Metadata/MetadataSet.h"

namespace Vantry { namespace Metadata {

/// A local set whose key the dictionary doesn't know: all its elements are
/// invalid ones.
class VANTRY_EXPORT DarkParsedGroup : public MetadataSet
{
public:
    DarkParsedGroup(KLV::Key const & key, MetadataSetOwner * owner) : MetadataSet(key, nullptr, owner) {}
};

}}
