#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry { namespace Metadata {

class MetadataSet;

namespace Visitors {

/// MetadataSetVisitor for sets that may be changed.
class VANTRY_EXPORT NonConstMetadataSetVisitor
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~NonConstMetadataSetVisitor();

    virtual void visit(MetadataSet & set) = 0;
};

}
}}
