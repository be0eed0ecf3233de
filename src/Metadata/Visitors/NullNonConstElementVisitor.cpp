#include "Metadata/Visitors/NullNonConstElementVisitor.h"

namespace Vantry { namespace Metadata { namespace Visitors {

NullNonConstElementVisitor::~NullNonConstElementVisitor() = default;

}}}
