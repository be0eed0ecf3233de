#include "Types/Visitors/NonConstVisitor.h"
#include "Types/Visitors/Visitable.h"
#include "Types/Visitors/Visitor.h"

namespace Vantry { namespace Types { namespace Visitors {

Visitable::~Visitable() = default;

Visitor::~Visitor() = default;

NonConstVisitor::~NonConstVisitor() = default;

}}}
