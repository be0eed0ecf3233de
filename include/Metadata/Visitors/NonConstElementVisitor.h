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

/// ElementVisitor for elements that may be changed.
class VANTRY_EXPORT NonConstElementVisitor
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~NonConstElementVisitor();

    virtual void visit(BatchReferenceElement & element) = 0;
    virtual void visit(ArrayReferenceElement & element) = 0;
    virtual void visit(ReferenceElement & element) = 0;
    virtual void visit(BatchElement & element) = 0;
    virtual void visit(ArrayElement & element) = 0;
    virtual void visit(SimpleElement & element) = 0;
};

}
}}
