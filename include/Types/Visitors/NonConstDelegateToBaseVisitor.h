#pragma once

#include "Types/Visitors/NonConstNullVisitor.h"

namespace Vantry { namespace Types { namespace Visitors {

/// Hands values of the derived classes to the operation of the base class: a
/// subclass that handles Int64 and UInt8 has those handled too.
class VANTRY_EXPORT NonConstDelegateToBaseVisitor : public NonConstNullVisitor
{
public:
    using NonConstNullVisitor::visit;

    ~NonConstDelegateToBaseVisitor() override;

    void visit(Length & value) override;
    void visit(Position & value) override;
    void visit(Orientation & value) override;
    void visit(SignalStandard & value) override;
};

}}}
