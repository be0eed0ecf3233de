#include "Types/Length.h"
#include "Types/Orientation.h"
#include "Types/Position.h"
#include "Types/SignalStandard.h"
#include "Types/Visitors/DelegateToBaseVisitor.h"
#include "Types/Visitors/GetIdentifierVisitor.h"
#include "Types/Visitors/NonConstDelegateToBaseVisitor.h"
#include "Types/Visitors/NonConstNullVisitor.h"
#include "Types/Visitors/NonConstVisitor.h"
#include "Types/Visitors/NullVisitor.h"
#include "Types/Visitors/Visitable.h"
#include "Types/Visitors/Visitor.h"

namespace Vantry { namespace Types { namespace Visitors {

Visitable::~Visitable() = default;

Visitor::~Visitor() = default;

NonConstVisitor::~NonConstVisitor() = default;

NullVisitor::~NullVisitor() = default;

NonConstNullVisitor::~NonConstNullVisitor() = default;

GetIdentifierVisitor::~GetIdentifierVisitor() = default;

DelegateToBaseVisitor::~DelegateToBaseVisitor() = default;

NonConstDelegateToBaseVisitor::~NonConstDelegateToBaseVisitor() = default;

void DelegateToBaseVisitor::visit(Length const & value)
{
    visit(static_cast<Int64 const &>(value));
}

void DelegateToBaseVisitor::visit(Position const & value)
{
    visit(static_cast<Int64 const &>(value));
}

void DelegateToBaseVisitor::visit(Orientation const & value)
{
    visit(static_cast<UInt8 const &>(value));
}

void DelegateToBaseVisitor::visit(SignalStandard const & value)
{
    visit(static_cast<UInt8 const &>(value));
}

void NonConstDelegateToBaseVisitor::visit(Length & value)
{
    visit(static_cast<Int64 &>(value));
}

void NonConstDelegateToBaseVisitor::visit(Position & value)
{
    visit(static_cast<Int64 &>(value));
}

void NonConstDelegateToBaseVisitor::visit(Orientation & value)
{
    visit(static_cast<UInt8 &>(value));
}

void NonConstDelegateToBaseVisitor::visit(SignalStandard & value)
{
    visit(static_cast<UInt8 &>(value));
}

}}}
