#pragma once

#include "Platform/Allocator.h"
#include "Platform/KeyedHash.h"
#include "Types/UUID.h"

#include <functional>
#include <unordered_set>

namespace Vantry { namespace Metadata {

struct HashUUID
{
    std::size_t operator()(Types::UUID const & uuid) const
    {
        return Platform::KeyedHash().add(uuid.rawBuffer(), uuid.serializedSize()).finish();
    }
};

/// Identifiers, to be asked which are there. There is no order in them.
using HashedUUIDs = std::unordered_set<Types::UUID, HashUUID, std::equal_to<>, Platform::Allocator<Types::UUID>>;

}}
