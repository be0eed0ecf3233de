#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry { namespace MetaMetadata {

class AbstractMetaAttributeVisitor;

/// What is known of an attribute that was met in a set: its place in the
/// schema, that it belongs elsewhere, or why it could not be told.
class VANTRY_EXPORT AbstractMetaAttribute
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~AbstractMetaAttribute();

    virtual void accept(AbstractMetaAttributeVisitor & visitor) const = 0;
};

}}
