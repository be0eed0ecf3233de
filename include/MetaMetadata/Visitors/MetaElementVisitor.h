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
class VANTRY_EXPORT MetaElementVisitor
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~MetaElementVisitor();

    virtual void visit(MetaCollectionElement const & element) = 0;
    virtual void visit(MetaReferenceHolder const & holder) = 0;
    virtual void visit(MetaValueHolder const & holder) = 0;
    virtual void visit(MetaReferenceCollection const & element) = 0;
    virtual void visit(MetaReferenceElement const & element) = 0;
    virtual void visit(MetaCollection const & element) = 0;
    virtual void visit(MetaSimpleElement const & element) = 0;
};

}
}}
