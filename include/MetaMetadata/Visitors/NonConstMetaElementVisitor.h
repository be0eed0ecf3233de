#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry { namespace MetaMetadata {

class MetaCollection;
class MetaCollectionElement;
class MetaReferenceCollection;
class MetaReferenceElement;
class MetaReferenceHolder;
class MetaSimpleElement;
class MetaValueHolder;

namespace Visitors {

/// Tells the kinds of MetaElement apart. Only the concrete classes call it;
/// the operations for their parts are there for visitors that pass on.
class VANTRY_EXPORT NonConstMetaElementVisitor
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~NonConstMetaElementVisitor();

    virtual void visit(MetaCollectionElement & element) = 0;
    virtual void visit(MetaReferenceHolder & holder) = 0;
    virtual void visit(MetaValueHolder & holder) = 0;
    virtual void visit(MetaReferenceCollection & element) = 0;
    virtual void visit(MetaReferenceElement & element) = 0;
    virtual void visit(MetaCollection & element) = 0;
    virtual void visit(MetaSimpleElement & element) = 0;
};

}
}}
