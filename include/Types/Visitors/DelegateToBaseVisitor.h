#pragma once

#include "Types/Visitors/NullVisitor.h"

namespace Vantry { namespace Types { namespace Visitors {

/// Hands values of the derived classes to the operation of the base class: a
/// subclass that handles Int64 and UInt8 has those handled too.
class VANTRY_EXPORT DelegateToBaseVisitor : public NullVisitor
{
public:
    using NullVisitor::visit;

    ~DelegateToBaseVisitor() override;

    void visit(Length const & value) override;
    void visit(Position const & value) override;
    void visit(Orientation const & value) override;
    void visit(SignalStandard const & value) override;
};

}}}
