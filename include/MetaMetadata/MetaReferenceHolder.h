#pragma once

#include "KLV/Key.h"
#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/Containers.h"

namespace Vantry { namespace MetaMetadata {

/// The part of a schema entry whose values refer to sets: the sets that may
/// be meant. An empty list allows none. The list counts when a set is linked,
/// not when a file is read.
class VANTRY_EXPORT MetaReferenceHolder
{
public:
    VANTRY_CLASS_ALLOCATION

    using Keys = Templates::vector<KLV::Key>;

    virtual ~MetaReferenceHolder();

    Keys const & allowedMetadataSets() const noexcept { return allowed_; }

    /// Appends a key to the list.
    void addAllowedMetadataSet(KLV::Key key);

protected:
    explicit MetaReferenceHolder(Keys const & allowed);
    MetaReferenceHolder(MetaReferenceHolder const &) = default;
    MetaReferenceHolder & operator=(MetaReferenceHolder const &) = default;

private:
    Keys allowed_;
};

VANTRY_EXPORT bool operator==(MetaReferenceHolder const & left, MetaReferenceHolder const & right);

}}
