#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Types/LocalTag.h"
#include "Types/UniversalLabel.h"

namespace Vantry { namespace MetaMetadata {

/// The static local tags with their labels, in both directions.
class VANTRY_EXPORT LocalTagMap
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~LocalTagMap();

    /// Enters the pair in both directions. Whatever stood under this tag or
    /// under this label goes; the partner of an old entry keeps its own.
    virtual void add(Types::LocalTag const & tag, Types::UniversalLabel const & label) = 0;

    /// The tag of a label, or null.
    virtual Types::LocalTag const * find(Types::UniversalLabel const & label) const = 0;

    /// The label of a tag, or null.
    virtual Types::UniversalLabel const * find(Types::LocalTag const & tag) const = 0;
};

}}
