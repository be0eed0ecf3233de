#pragma once

#include "Platform/Export.h"
#include "Templates/SharedPtr.h"

namespace Vantry { namespace MetaMetadata {

class AbstractMetaAttribute;
class MetaElement;

namespace Helpers {

/// The element of a MetaAttribute or a MisplacedAttribute; null for any other
/// attribute, and for none.
VANTRY_EXPORT MetaElement const *
abstractMetaAttributeToMetaElement(Templates::SharedPtr<AbstractMetaAttribute const> const & attribute);

}
}}
