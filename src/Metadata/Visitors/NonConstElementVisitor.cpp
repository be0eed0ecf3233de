#include "Metadata/Visitors/NonConstElementVisitor.h"

namespace Vantry { namespace Metadata { namespace Visitors {

NonConstElementVisitor::~NonConstElementVisitor() = default;

}}}
