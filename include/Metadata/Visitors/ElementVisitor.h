#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry { namespace Metadata {

class ArrayElement;
class ArrayReferenceElement;
class BatchElement;
class BatchReferenceElement;
class ReferenceElement;
class SimpleElement;

namespace Visitors {

/// Does something with an element according to its class:
/// `element.accept(visitor)` calls the operation of the element's own class.
class VANTRY_EXPORT ElementVisitor
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~ElementVisitor();

    virtual void visit(BatchReferenceElement const & element) = 0;
    virtual void visit(ArrayReferenceElement const & element) = 0;
    virtual void visit(ReferenceElement const & element) = 0;
    virtual void visit(BatchElement const & element) = 0;
    virtual void visit(ArrayElement const & element) = 0;
    virtual void visit(SimpleElement const & element) = 0;
};

}
}}
