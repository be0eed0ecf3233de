#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry { namespace MetaMetadata {

class MetaAttribute;
class MisplacedAttribute;
class UnknownAttribute;

/// Tells the kinds of AbstractMetaAttribute apart.
class VANTRY_EXPORT AbstractMetaAttributeVisitor
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~AbstractMetaAttributeVisitor();

    virtual void visit(UnknownAttribute const & attribute) = 0;
    virtual void visit(MisplacedAttribute const & attribute) = 0;
    virtual void visit(MetaAttribute const & attribute) = 0;
};

}}
