#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"
#include "Templates/auto_ptr.h"

namespace Vantry {
namespace Types {
class UniversalLabel;
}

namespace MetaMetadata {

class MetaElement;

/// The attributes of the schema by label.
class VANTRY_EXPORT UniversalLabelMap
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~UniversalLabelMap();

    /// Takes the element over, in place of an earlier one under the label.
    virtual void add(Types::UniversalLabel const & label, Templates::auto_ptr<MetaElement> element) = 0;

    /// The element, or null.
    virtual MetaElement const * findMetaElement(Types::UniversalLabel const & label) const = 0;
};

}
}
