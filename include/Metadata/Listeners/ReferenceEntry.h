#pragma once

#include "Platform/Allocation.h"
#include "Platform/Allocator.h"

#include <functional>
#include <set>

namespace Vantry { namespace Metadata {

class Element;

namespace Listeners {

/// The elements that refer to one instance identifier.
struct ReferenceEntry
{
    VANTRY_CLASS_ALLOCATION

    using Elements = std::set<Element *, std::less<>, Platform::Allocator<Element *>>;

    Elements weak;
    Elements strong;
};

}
}}
