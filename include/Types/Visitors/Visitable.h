#pragma once

#include "Platform/Allocation.h"
#include "Platform/Export.h"

namespace Vantry { namespace Types { namespace Visitors {

class NonConstVisitor;
class Visitor;

/// What a visitor can be sent to.
class VANTRY_EXPORT Visitable
{
public:
    VANTRY_CLASS_ALLOCATION

    virtual ~Visitable();

    /// Calls the visitor's operation for the class of this object.
    virtual void accept(NonConstVisitor & visitor) = 0;
    virtual void accept(Visitor & visitor) const = 0;

protected:
    Visitable() = default;
    Visitable(Visitable const &) = default;
    Visitable & operator=(Visitable const &) = default;
};

}}}
