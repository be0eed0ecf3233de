#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/Containers.h"
#include "Templates/SharedPtr.h"
#include "Types/BaseType.h"

namespace Vantry { namespace MetaMetadata {

/// The part of a schema entry whose values are plain: the values that it is
/// meant to take. The library carries the list and doesn't enforce it.
class VANTRY_EXPORT MetaValueHolder
{
public:
    VANTRY_CLASS_ALLOCATION

    using Enumeration = Templates::vector<Templates::SharedPtr<Types::BaseType const>>;

    virtual ~MetaValueHolder();

    /// The allowed values; empty where there is no such list.
    Enumeration const & enumeration() const noexcept { return enumeration_; }

protected:
    MetaValueHolder() = default;
    explicit MetaValueHolder(Enumeration const & enumeration);
    MetaValueHolder(MetaValueHolder const &) = default;
    MetaValueHolder & operator=(MetaValueHolder const &) = default;

private:
    Enumeration enumeration_;
};

/// Whether both lists have the same values in the same order.
VANTRY_EXPORT bool operator==(MetaValueHolder const & left, MetaValueHolder const & right);

}}
