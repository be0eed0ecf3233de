#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry { namespace Metadata {

class MetadataSet;

namespace Visitors {

/// Does something with a set according to its class. This one knows only
/// MetadataSet; visitors of the classes with accessors derive from it.
class VANTRY_EXPORT MetadataSetVisitor
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~MetadataSetVisitor();

    virtual void visit(MetadataSet const & set) = 0;
};

}
}}
